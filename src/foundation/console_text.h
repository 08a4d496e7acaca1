#pragma once

/// Puts a text on the console, for code below the output streams, which can't see them. The body
/// is in textout/console.cpp.
void write_console_text(const char* text);
