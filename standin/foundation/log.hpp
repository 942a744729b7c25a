// Formatted text with the platform's conversions, and where the lines of `NSLog` go.
#pragma once

#include <cstdarg>
#include <cstddef>

#include "standin/text/text.hpp"

namespace standin::foundation {

// The printf conversions, `%@` for an object's description ("(null)" for nil), `%C` for a UTF-16 unit, `%S` for
// zero-terminated UTF-16 units, and arguments by position (`%2$d`). What is no conversion stands as it is written.
text::Text formatText(const text::Text& format, va_list arguments);

}  // namespace standin::foundation

extern "C" {
// Takes the UTF-8 message of each `NSLog`, without date and process; not zero-terminated.
typedef void (*StandinLogSink)(void* context, const char* message, size_t length);
// Sends the messages of `NSLog` to the sink; nil sends them to standard error again.
void standin_setLogSink(StandinLogSink sink, void* context);
}
