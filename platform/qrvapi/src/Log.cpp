#include "Log.h"

#include <sys/time.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <utility>

#include "qrvapi/log.h"

namespace qrvapi {
namespace {

constexpr int errorLevel = 2;

/// UTC, to the millisecond.
std::string timeStamp() {
    timeval now{};
    gettimeofday(&now, nullptr);
    tm fields{};
    gmtime_r(&now.tv_sec, &fields);
    char day[32];
    std::strftime(day, sizeof day, "%Y-%m-%dT%H:%M:%S", &fields);
    char text[48];
    std::snprintf(text, sizeof text, "%s.%03dZ", day, static_cast<int>(now.tv_usec / 1000));
    return text;
}

/// One line for one entry, so that no text of a client can look like an entry of its own.
std::string asLine(std::string text) {
    if (!text.empty() && text.back() == '\n') text.pop_back();
    const auto isControl = [](char c) { return (c >= '\0' && c < ' ') || c == '\x7f'; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

void write(int level, const std::string& text) {
    const auto line = timeStamp() + " [" + std::to_string(level) + "] " + asLine(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

[[gnu::format(printf, 1, 0)]] std::string formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

/// An entry that there is no memory for is lost: the caller must not notice.
[[gnu::format(printf, 2, 0)]] void logFormatted(int level, const char* format,
                                                va_list arguments) noexcept {
    try {
        Log::instance().add(level, formatted(format, arguments));
    } catch (const std::exception&) {
        std::fputs("a log entry was lost for lack of memory\n", stderr);
    }
}

}  // namespace

Log& Log::instance() {
    static auto& log = *new Log;
    return log;
}

void Log::add(int level, const std::string& text) {
    if (level <= level_) write(level, text);
    if (level > capturedLevel_) return;
    const std::lock_guard lock(mutex_);
    captured_.push_back({level, text});
}

std::vector<control::LogLine> Log::take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(captured_, {});
}

}  // namespace qrvapi

void log_message(int level, const char* format, ...) {
    if (!qrvapi::Log::instance().wants(level)) return;
    va_list arguments;
    va_start(arguments, format);
    qrvapi::logFormatted(level, format, arguments);
    va_end(arguments);
}

void qrv_print_no_evt(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    qrvapi::logFormatted(qrvapi::errorLevel, format, arguments);
    va_end(arguments);
}

void qrv_panic(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    qrvapi::logFormatted(qrvapi::errorLevel, format, arguments);
    va_end(arguments);
}
