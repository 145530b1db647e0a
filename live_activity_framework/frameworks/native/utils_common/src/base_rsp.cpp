#include "base_rsp.h"

#include <cstdarg>
#include <cstdio>

#include "live_view_logger.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {
std::string FormatText(const char* format, va_list args) {
    if (format == nullptr) {
        return "";
    }
    va_list copy;
    va_copy(copy, args);
    char buffer[256];
    const int n = std::vsnprintf(buffer, sizeof(buffer), format, copy);
    va_end(copy);
    if (n < 0) {
        return "";
    }
    if (static_cast<size_t>(n) < sizeof(buffer)) {
        return std::string(buffer, static_cast<size_t>(n));
    }
    std::string text(static_cast<size_t>(n) + 1, '\0');
    std::vsnprintf(&text[0], text.size(), format, args);
    text.resize(static_cast<size_t>(n));
    return text;
}
}  // namespace

BaseRsp::BaseRsp(const ErrorCode& code, const char* format, ...) : code_(code) {
    va_list args;
    va_start(args, format);
    info_ = FormatText(format, args);
    va_end(args);
}

BaseRsp::BaseRsp(const ErrorCode& code, const LogTemplate& where, const char* format, ...)
    : code_(code) {
    va_list args;
    va_start(args, format);
    info_ = FormatText(format, args);
    va_end(args);
    const std::string file = Logger::SourceName(where.GetFile());
    LV_LOG_AT(LOG_ERROR, file.c_str(), where.GetLine(), where.GetFunc().c_str(), "%{public}s",
              info_.c_str());
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
