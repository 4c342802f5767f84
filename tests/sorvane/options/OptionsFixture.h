// Test scaffolding for the option store: a private user data folder so that
// loading never touches the real one, and a store installed as the global.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "options/GlobDimOptions.h"

class OptionsFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sv_options_XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        setenv("XDG_CONFIG_HOME", (m_dir = pattern).c_str(), 1);
        pGlobDimOptions = &m_options;
    }
    void TearDown() override
    {
        pGlobDimOptions = nullptr;
        unsetenv("XDG_CONFIG_HOME");
        std::filesystem::remove_all(m_dir);
    }

    CGlobDimOptions m_options;
    std::filesystem::path m_dir;
};
