// NSLog.
#include "standin/foundation/log.hpp"

#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>

#include "standin/foundation/encodings.hpp"
#include "standin/foundation/string_classes.hpp"

namespace standin::foundation {
namespace {

struct Sink {
  StandinLogSink function = nullptr;
  void* context = nullptr;
};
Sink sink;

// "2026-11-22 22:30:01.123 process[pid:tid] ", in local time.
std::string linePrefix() {
  timeval now;
  gettimeofday(&now, nullptr);
  tm local;
  localtime_r(&now.tv_sec, &local);
  char date[32], rest[64];
  std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &local);
  std::snprintf(rest, sizeof rest, "[%d:%d] ", getpid(), gettid());
  char milliseconds[8];
  std::snprintf(milliseconds, sizeof milliseconds, ".%03d ", static_cast<int>(now.tv_usec / 1000 % 1000));
  return std::string(date) + milliseconds + program_invocation_short_name + rest;
}

// One write a line, so that lines of several processes do not mix.
void writeLine(const std::string& message) {
  std::string line = linePrefix() + message;
  if (!line.ends_with('\n')) line += '\n';
  for (size_t at = 0; at < line.size();) {
    const ssize_t put = ::write(STDERR_FILENO, line.data() + at, line.size() - at);
    if (put < 0 && errno != EINTR) return;
    if (put > 0) at += static_cast<size_t>(put);
  }
}

}  // namespace
}  // namespace standin::foundation

using namespace standin::foundation;

extern "C" {

void standin_setLogSink(StandinLogSink function, void* context) { sink = {function, context}; }

void NSLogv(NSString* format, va_list arguments) {
  const standin::text::Text text = format != nullptr ? formatText(textOf(format), arguments) : standin::text::Text();
  const std::string message = *encode(text, {.loss = "\xEF\xBF\xBD"});
  if (sink.function != nullptr) {
    sink.function(sink.context, message.data(), message.size());
  } else {
    writeLine(message);
  }
}

void NSLog(NSString* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  NSLogv(format, arguments);
  va_end(arguments);
}
}
