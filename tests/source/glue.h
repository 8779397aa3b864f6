// The module's own code inside the test program, with a running host behind it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "c4d.h"
#include "host/application.h"
#include "host/value/text.h"
#include "tests/support/temporary_folder.h"

class WithGlue : public testing::Test {
  protected:
    WithGlue() : WithGlue(TREMOLUX_MODULE_FILE) {}

    explicit WithGlue(const std::filesystem::path &file) : application_(Settings(folder_.Path())) {
        TableFilename name{};
        host::Assign(&name, file);
        started_ = c4d_main(C4DPL_INIT_SYS, const_cast<HostTable *>(host::Application::Table()), nullptr, &name);
        host::ReleaseText(&name.path);
    }

    ~WithGlue() override {
        if (started_ == 1) c4d_main(C4DPL_END, nullptr, nullptr, nullptr);
    }

    void SetUp() override { ASSERT_EQ(started_, 1); }

    host::Application &application() { return application_; }
    const std::filesystem::path &folder() const { return folder_.Path(); }

  private:
    static host::ApplicationSettings Settings(const std::filesystem::path &folder) {
        std::filesystem::create_directories(folder / "user");
        host::ApplicationSettings settings;
        settings.application_folder = folder;
        settings.user_folder = folder / "user";
        return settings;
    }

    test_support::TemporaryFolder folder_;
    host::Application application_;
    LONG started_ = 0;
};
