// The library's log lines: one platform log call per line, with the log type, domain and tag of
// the library and the prefix "[file:line] function# ".
//
// Line numbers are given by the caller, not taken from __LINE__: they are part of the documented
// output. The file is the base name of the source with its extension.
//
// Thread safety: the macros may be used from any thread.
#ifndef LIVE_VIEW_LOGGER_H
#define LIVE_VIEW_LOGGER_H

#include <cstring>
#include <string>

#include "hilog/log.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

struct Logger {
    // The tag of every log line of the library.
    inline static const std::string TAG_ = "live_view_manager";
    inline static const std::string COLLECT_MARK_ = "@";
    static constexpr unsigned int DOMAIN = 0xD005301;
    static constexpr const char* TAG = "live_view_manager";

    // The base name of a source path, given the ".cpp" extension when the path has none.
    static std::string SourceName(const std::string& path) {
        const auto slash = path.find_last_of('/');
        std::string base = slash == std::string::npos ? path : path.substr(slash + 1);
        if (base.find('.') == std::string::npos) {
            base += ".cpp";
        }
        return base;
    }
    // The base name of __FILE__, which always has its extension.
    static const char* SourceName(const char* path) {
        const char* slash = std::strrchr(path, '/');
        return slash == nullptr ? path : slash + 1;
    }
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

// LV_LOG_AT(level, file, line, func, fmt, ...): one line naming file (a C string), line and func.
#define LV_LOG_AT(level, file, line, func, fmt, ...)                                            \
    HiLogPrint(LOG_CORE, level, ::Tavi::Wisp::LiveView::Logger::DOMAIN,                         \
               ::Tavi::Wisp::LiveView::Logger::TAG, "[%{public}s:%{public}d] %{public}s# " fmt, \
               file, static_cast<int>(line), func, ##__VA_ARGS__)

// Lines of the current source file; the _FN forms name the function explicitly where the
// documented name differs from the C++ function's.
#define LV_LOG_FN(level, line, func, fmt, ...)                                              \
    LV_LOG_AT(level, ::Tavi::Wisp::LiveView::Logger::SourceName(__FILE__), line, func, fmt, \
              ##__VA_ARGS__)
#define LV_LOGI_FN(line, func, fmt, ...) LV_LOG_FN(LOG_INFO, line, func, fmt, ##__VA_ARGS__)
#define LV_LOGW_FN(line, func, fmt, ...) LV_LOG_FN(LOG_WARN, line, func, fmt, ##__VA_ARGS__)
#define LV_LOGE_FN(line, func, fmt, ...) LV_LOG_FN(LOG_ERROR, line, func, fmt, ##__VA_ARGS__)
#define LV_LOGI(line, fmt, ...) LV_LOGI_FN(line, __func__, fmt, ##__VA_ARGS__)
#define LV_LOGW(line, fmt, ...) LV_LOGW_FN(line, __func__, fmt, ##__VA_ARGS__)
#define LV_LOGE(line, fmt, ...) LV_LOGE_FN(line, __func__, fmt, ##__VA_ARGS__)

#endif  // LIVE_VIEW_LOGGER_H
