// Shared by the tools suites: example files, reading a live view from JSON text,
// scratch folders, and running the built liveview command.
// Thread-safety: test-only helpers; use from the test's own thread.
#ifndef TESTS_TOOLS_TOOLS_TEST_SUPPORT_H
#define TESTS_TOOLS_TOOLS_TEST_SUPPORT_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "json_document.h"
#include "live_view_reader.h"

namespace LiveViewToolsTest {

inline std::string ExamplePath(const std::string& relative) {
    return std::string(EXAMPLES_DIR) + "/" + relative;
}

inline std::string ReadText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// Reads a live view from JSON text named test.json; picture files are relative to the example
// live views. On failure error (when given) holds the reason.
inline bool ReadFromText(const std::string& text, Tavi::Wisp::LiveView::LiveView& liveView,
                         LiveViewJson::InputError* error = nullptr) {
    LiveViewJson::JsonDocument document;
    LiveViewJson::ReadContext context{"test.json", ExamplePath("liveviews"), {}};
    const bool usable = LiveViewJson::ParseJson(text, "test.json", document, context.error) &&
                        LiveViewJson::ReadLiveView(document.Root(), context, liveView);
    if (error != nullptr) {
        *error = context.error;
    }
    return usable;
}

// A folder of the test's own, removed with the object.
class ScratchDir {
public:
    ScratchDir()
        : path_(std::filesystem::temp_directory_path() /
                ("liveview_tools_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(path_);
    }
    ~ScratchDir() { std::filesystem::remove_all(path_); }

    std::string Path(const std::string& name) const { return (path_ / name).string(); }
    std::string Write(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
        return Path(name);
    }

private:
    std::filesystem::path path_;
};

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

// Runs the built liveview command with args (each quoted), capturing both streams.
inline CliRun RunCli(const std::vector<std::string>& args) {
    static int counter = 0;
    const std::string base =
        (std::filesystem::temp_directory_path() /
         ("liveview_cli_" + std::to_string(::getpid()) + "_" + std::to_string(counter++)))
            .string();
    std::string command = std::string("'") + LIVEVIEW_CLI + "'";
    for (const auto& arg : args) {
        command += " '" + arg + "'";
    }
    const int raw = std::system((command + " >'" + base + ".out' 2>'" + base + ".err'").c_str());
    CliRun run{WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadText(base + ".out"),
               ReadText(base + ".err")};
    std::filesystem::remove(base + ".out");
    std::filesystem::remove(base + ".err");
    return run;
}

}  // namespace LiveViewToolsTest

#endif  // TESTS_TOOLS_TOOLS_TEST_SUPPORT_H
