// The platform of an application that brings no framework of its own.
#pragma once

namespace orv::platform {

// Sets the process's platform up: its services (the canvas service with the software canvas, fonts, folders,
// the clipboard, windows, menus, spelling) and its glyphs. The folder of documents is $XDG_DOCUMENTS_DIR, or Documents
// in $HOME. The shared library of the host framework does this when it is loaded; a program that is linked statically
// calls it first of all. Where there are platform services already they stay as they are. No font is opened, and no
// display is asked for. Main thread.
void StartPlatform();

}  // namespace orv::platform
