// The platform log. One call writes one line.
//
// Formats are printf formats whose conversions may carry a visibility mark: "%{public}s" prints
// the value, "%{private}d" prints "<private>" in its place (the argument is still consumed). An
// unmarked conversion prints its value. "%n" is refused and prints nothing.
//
// Thread safety: HiLogPrint may be called from any thread; lines are never interleaved.
#ifndef TAVI_HILOG_LOG_H
#define TAVI_HILOG_LOG_H

#include <cstdarg>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    LOG_TYPE_MIN = 0,
    LOG_APP = 0,
    LOG_INIT = 1,
    LOG_CORE = 3,
    LOG_KMSG = 4,
    LOG_TYPE_MAX
} LogType;

typedef enum {
    LOG_LEVEL_MIN = 0,
    LOG_DEBUG = 3,
    LOG_INFO = 4,
    LOG_WARN = 5,
    LOG_ERROR = 6,
    LOG_FATAL = 7,
    LOG_LEVEL_MAX
} LogLevel;

// Writes one line; returns the number of bytes of the formatted message, or -1 when fmt or tag is
// null.
int HiLogPrint(LogType type, LogLevel level, unsigned int domain, const char* tag, const char* fmt,
               ...);
// The same with the arguments as a va_list.
int HiLogPrintArgs(LogType type, LogLevel level, unsigned int domain, const char* tag,
                   const char* fmt, va_list args);

#ifdef __cplusplus
}
#endif

#endif  // TAVI_HILOG_LOG_H
