// BaseRsp: the result of every live view operation, check and read-back step. A default-made
// BaseRsp is success (code 0); a failure carries a public ErrorCode and its text.
//
// Thread safety: a value type; copies may be used on any thread.
#ifndef LIVE_VIEW_BASE_RSP_H
#define LIVE_VIEW_BASE_RSP_H

#include <cstdint>
#include <string>

#include "error_code.h"
#include "log_template.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

class BaseRsp {
public:
    BaseRsp() = default;
    // A failure with the given text, not logged.
    BaseRsp(const ErrorCode& code, const std::string& info) : code_(code), info_(info) {}
    // A failure whose text is formatted printf-style, not logged.
    BaseRsp(const ErrorCode& code, const char* format, ...) __attribute__((format(printf, 3, 4)));
    // The same, and the text is logged at error level naming the place `where` gives.
    BaseRsp(const ErrorCode& code, const LogTemplate& where, const char* format, ...)
        __attribute__((format(printf, 4, 5)));

    bool Succeed() const { return code_ == SUCCESS; }
    ErrorCode GetErr() const { return code_; }
    int32_t GetErrAsInt32() const { return static_cast<int32_t>(code_); }
    const std::string& GetInfo() const { return info_; }

private:
    ErrorCode code_ = SUCCESS;
    std::string info_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_BASE_RSP_H
