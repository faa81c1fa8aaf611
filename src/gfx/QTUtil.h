// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The one-call path from a picture's file name to a texture, and the system log.
#pragma once

#include <string>
#include <vector>

// Makes a texture name, always, and fills it from the picture of that name in the resources' "Images" folder:
// linear filtering, repeated in both directions, left bound. An OpenGL context is current. 0 on success; -1,
// with an empty texture and a log line, when the picture cannot be loaded.
int QTLoadAsTexture(unsigned long* texture, char const* name);

// Decodes those pictures on another thread, while OpenGL is set up. The next QTLoadAsTexture() waits for all
// of them; the first one of each name uses what was decoded.
void QTDecodeAhead(std::vector<std::string> names);

// Writes the text to the system log.
void QTUtilLog(char const* text);
