// Picture files in the PNG format.
#pragma once

#include <filesystem>

#include "platform/Frame.h"

namespace orv::platform {

// Many viewers and libraries refuse pictures with more pixels than this on a side.
inline constexpr int MaxPictureSide = 32767;

// Writes the frame; one that is opaque throughout is stored without alpha. The file appears whole or not at all: it is
// written beside its place under another name and renamed at the end, replacing a file of that name. Raises
// EPictureError, leaving no trace, where the frame is empty or too large or the file cannot be written.
void WritePng(const std::filesystem::path& path, const TFrame& frame);

// Raises EPictureError where the file cannot be read or is no PNG picture.
TFrame ReadPng(const std::filesystem::path& path);

}  // namespace orv::platform
