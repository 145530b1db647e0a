#include "hilog/log.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "log_sink.h"

namespace {

char LevelLetter(int level) {
    switch (level) {
        case LOG_DEBUG:
            return 'D';
        case LOG_INFO:
            return 'I';
        case LOG_WARN:
            return 'W';
        case LOG_ERROR:
            return 'E';
        case LOG_FATAL:
            return 'F';
        default:
            return '?';
    }
}

std::string FormatLine(const Tavi::Host::LogLine& line) {
    char head[64];
    std::snprintf(head, sizeof(head), "%c %05X/", LevelLetter(line.level), line.domain & 0xFFFFF);
    return head + line.tag + ": " + line.text;
}

template <typename T>
void AppendValue(std::string& out, const std::string& conversionSpec, T value) {
    char buffer[128];
    int n = std::snprintf(buffer, sizeof(buffer), conversionSpec.c_str(), value);
    if (n < 0) {
        return;
    }
    if (static_cast<size_t>(n) < sizeof(buffer)) {
        out.append(buffer, static_cast<size_t>(n));
        return;
    }
    std::string big(static_cast<size_t>(n) + 1, '\0');
    std::snprintf(&big[0], big.size(), conversionSpec.c_str(), value);
    out.append(big.data(), static_cast<size_t>(n));
}

// Formats one conversion starting at fmt[i] == '%'; returns the index after it.
size_t FormatConversion(const char* fmt, size_t i, va_list& args, std::string& out) {
    ++i;
    if (fmt[i] == '%') {
        out.push_back('%');
        return i + 1;
    }
    bool isPrivate = false;
    if (fmt[i] == '{') {
        const char* close = std::strchr(fmt + i, '}');
        if (close != nullptr) {
            std::string mark(fmt + i + 1, close);
            isPrivate = mark == "private";
            i = static_cast<size_t>(close - fmt) + 1;
        }
    }
    std::string conversionSpec = "%";
    while (std::strchr("-+ #0", fmt[i]) != nullptr && fmt[i] != '\0') {
        conversionSpec.push_back(fmt[i++]);
    }
    auto takeNumber = [&]() {
        if (fmt[i] == '*') {
            int n = va_arg(args, int);
            conversionSpec += std::to_string(n);
            ++i;
            return;
        }
        while (fmt[i] >= '0' && fmt[i] <= '9') {
            conversionSpec.push_back(fmt[i++]);
        }
    };
    takeNumber();
    if (fmt[i] == '.') {
        conversionSpec.push_back(fmt[i++]);
        takeNumber();
    }
    std::string length;
    while (fmt[i] != '\0' && std::strchr("hlLqjzt", fmt[i]) != nullptr) {
        length.push_back(fmt[i++]);
    }
    const char conversion = fmt[i];
    if (conversion == '\0') {
        return i;
    }
    ++i;
    conversionSpec += length;
    conversionSpec.push_back(conversion);
    // A private value is formatted all the same (its argument must be consumed) and then hidden.
    std::string hidden;
    std::string& value = isPrivate ? hidden : out;
    switch (conversion) {
        case 'd':
        case 'i':
        case 'o':
        case 'u':
        case 'x':
        case 'X':
        case 'c':
            if (length == "ll" || length == "q" || length == "j") {
                AppendValue(value, conversionSpec, va_arg(args, long long));
            } else if (length == "l" || length == "z" || length == "t") {
                AppendValue(value, conversionSpec, va_arg(args, long));
            } else {
                AppendValue(value, conversionSpec, va_arg(args, int));
            }
            break;
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
        case 'a':
        case 'A':
            if (length == "L") {
                AppendValue(value, conversionSpec, va_arg(args, long double));
            } else {
                AppendValue(value, conversionSpec, va_arg(args, double));
            }
            break;
        case 's': {
            const char* argument = va_arg(args, const char*);
            const char* text = argument == nullptr ? "(null)" : argument;
            if (conversionSpec == "%s") {
                // The common case, and the one that carries long texts: no formatting to do.
                value.append(text);
            } else {
                AppendValue(value, conversionSpec, text);
            }
            break;
        }
        case 'p':
            AppendValue(value, conversionSpec, va_arg(args, void*));
            break;
        case 'n':
            (void)va_arg(args, void*);
            return i;
        default:
            value += conversionSpec;
            break;
    }
    if (isPrivate) {
        out += "<private>";
    }
    return i;
}

}  // namespace

namespace Tavi {
namespace Host {

RecordSink<LogLine>& LogSink() {
    static RecordSink<LogLine> sink(FormatLine);
    return sink;
}

}  // namespace Host
}  // namespace Tavi

extern "C" int HiLogPrintArgs(LogType type, LogLevel level, unsigned int domain, const char* tag,
                              const char* fmt, va_list args) {
    if (fmt == nullptr || tag == nullptr) {
        return -1;
    }
    va_list copy;
    va_copy(copy, args);
    std::string text;
    text.reserve(std::strlen(fmt) + 64);
    for (size_t i = 0; fmt[i] != '\0';) {
        if (fmt[i] == '%') {
            i = FormatConversion(fmt, i, copy, text);
        } else {
            text.push_back(fmt[i++]);
        }
    }
    va_end(copy);
    const int size = static_cast<int>(text.size());
    Tavi::Host::LogSink().Emit({type, level, domain, tag, std::move(text)});
    return size;
}

extern "C" int HiLogPrint(LogType type, LogLevel level, unsigned int domain, const char* tag,
                          const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    int n = HiLogPrintArgs(type, level, domain, tag, fmt, args);
    va_end(args);
    return n;
}
