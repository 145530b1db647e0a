// Where a failure happened: the logger, source file, function and line that a failing BaseRsp
// names in its log line.
//
// Thread safety: immutable after construction.
#ifndef LIVE_VIEW_LOG_TEMPLATE_H
#define LIVE_VIEW_LOG_TEMPLATE_H

#include <cstdint>
#include <string>

namespace Tavi {
namespace Wisp {
namespace LiveView {

// Where a log line goes; the library writes everything to the platform log.
enum LoggerType : int32_t {
    LOGGER_NONE = 0,
    LOGGER_CONSOLE = 1,
    LOGGER_FILE = 2,
    LOGGER_HILOG = 3,
};

class LogTemplate {
public:
    // Copies both texts; file is a source path with or without its extension.
    LogTemplate(const LoggerType& type, const char* const& file, const char* const& func,
                const unsigned int& line)
        : loggerType_(type),
          file_(file == nullptr ? "" : file),
          func_(func == nullptr ? "" : func),
          line_(line) {}
    virtual ~LogTemplate() = default;

    LoggerType GetLoggerType() const { return loggerType_; }
    const std::string& GetFile() const { return file_; }
    const std::string& GetFunc() const { return func_; }
    unsigned int GetLine() const { return line_; }

    inline static const std::string COLLECT_MARK_ = ":";

private:
    LoggerType loggerType_;
    std::string file_;
    std::string func_;
    unsigned int line_;
};

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_LOG_TEMPLATE_H
