// A fixture whose every test gets a fresh folder under /tmp, removed with everything in it when
// the test ends, for tests of what is written to files.
#ifndef LIVE_VIEW_TESTS_TEMP_FOLDER_TEST_H
#define LIVE_VIEW_TESTS_TEMP_FOLDER_TEST_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace LiveViewTest {

class TempFolderTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/live_view_test.XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir_ = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }

    std::string dir_;  // the folder, without a trailing slash
};

}  // namespace LiveViewTest

#endif  // LIVE_VIEW_TESTS_TEMP_FOLDER_TEST_H
