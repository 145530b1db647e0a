// Shared by the tools suites: example files, JSON patching, reading a live view from JSON text,
// scratch files, and running the built liveview command.
#ifndef TESTS_TOOLS_TOOLS_TEST_SUPPORT_H
#define TESTS_TOOLS_TOOLS_TEST_SUPPORT_H

#include <cjson/cJSON.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "field_reader.h"
#include "json_document.h"
#include "live_view_reader.h"

namespace LiveViewToolsTest {

using Tree = std::unique_ptr<cJSON, void (*)(cJSON*)>;

inline std::string ExamplePath(const std::string& relative) {
    return std::string(EXAMPLES_DIR) + "/" + relative;
}

inline std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline std::vector<std::string> ExampleFiles(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(ExamplePath(folder))) {
        if (entry.path().extension() == ".json") {
            files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

inline Tree ParseTree(const std::string& text) {
    return Tree(cJSON_Parse(text.c_str()), cJSON_Delete);
}

// Replaces the member at dotted path (array elements by index, e.g. "a.content.0.text") with
// the JSON value text.
inline void Patch(cJSON* root, const std::string& path, const std::string& value) {
    std::istringstream names(path);
    std::string name;
    std::vector<std::string> parts;
    while (std::getline(names, name, '.')) {
        parts.push_back(name);
    }
    cJSON* parent = root;
    for (size_t i = 0; i + 1 < parts.size(); ++i) {
        parent = cJSON_IsArray(parent) ? cJSON_GetArrayItem(parent, std::stoi(parts[i]))
                                       : cJSON_GetObjectItemCaseSensitive(parent, parts[i].c_str());
        ASSERT_NE(parent, nullptr) << path;
    }
    cJSON* replacement = cJSON_Parse(value.c_str());
    ASSERT_NE(replacement, nullptr) << value;
    if (cJSON_IsArray(parent)) {
        cJSON_ReplaceItemInArray(parent, std::stoi(parts.back()), replacement);
    } else if (cJSON_GetObjectItemCaseSensitive(parent, parts.back().c_str()) != nullptr) {
        cJSON_ReplaceItemInObjectCaseSensitive(parent, parts.back().c_str(), replacement);
    } else {
        cJSON_AddItemToObject(parent, parts.back().c_str(), replacement);
    }
}

// Reads a live view from JSON text; picture files are relative to the example live views.
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

// A folder of its own for each test, removed with the object.
class ScratchDir {
public:
    ScratchDir() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ = std::filesystem::temp_directory_path() /
                ("liveview_tools_" + std::to_string(::getpid()) + "_" + info->name());
        std::filesystem::create_directories(path_);
    }
    ~ScratchDir() { std::filesystem::remove_all(path_); }

    std::string Write(const std::string& name, const std::string& content) const {
        const auto file = path_ / name;
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }
    std::string Path(const std::string& name) const { return (path_ / name).string(); }

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
    const auto base =
        std::filesystem::temp_directory_path() /
        ("liveview_cli_" + std::to_string(::getpid()) + "_" + std::to_string(counter++));
    std::string command = std::string("'") + LIVEVIEW_CLI + "'";
    for (const auto& arg : args) {
        command += " '" + arg + "'";
    }
    command += " >'" + base.string() + ".out' 2>'" + base.string() + ".err'";
    CliRun run;
    const int raw = std::system(command.c_str());
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    run.out = ReadText(base.string() + ".out");
    run.err = ReadText(base.string() + ".err");
    std::filesystem::remove(base.string() + ".out");
    std::filesystem::remove(base.string() + ".err");
    return run;
}

inline size_t LineCount(const std::string& text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace LiveViewToolsTest

#endif  // TESTS_TOOLS_TOOLS_TEST_SUPPORT_H
