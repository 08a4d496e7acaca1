#pragma once

/// Writes a text to the current console stream. The layers below the output streams report
/// through this one function; its body stands with the console.
void write_console_text(const char* text);
