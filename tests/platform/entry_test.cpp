#include <gtest/gtest.h>

#include <string>

#include "tests/platform/bare_host.h"

namespace {

int starts = 0;
int ends = 0;
LONG last_message = 0;
void *last_data = nullptr;
Bool answer = TRUE;

}  // namespace

Bool PluginStart(void) {
    ++starts;
    return answer;
}

void PluginEnd(void) { ++ends; }

Bool PluginMessage(LONG id, void *data) {
    last_message = id;
    last_data = data;
    return answer;
}

namespace {

class EntryTest : public testing::Test {
  protected:
    void SetUp() override {
        starts = ends = 0;
        answer = TRUE;
        table_ = *host_table;
    }
    void TearDown() override {
        while (c4d_main(C4DPL_END, nullptr, nullptr, nullptr) == 1) {
        }
    }
    LONG Start() { return c4d_main(C4DPL_INIT_SYS, &table_, nullptr, &file_); }

    BareHost host_;
    HostTable table_;
    Filename file_ = Filename("plugins") + "TremoluxCam" + "TremoluxCam.so";
};

TEST_F(EntryTest, AnswersItsInterfaceVersionAtAnyTime) {
    EXPECT_EQ(c4d_main(C4DPL_INIT_VERSION, nullptr, nullptr, nullptr), 5);
}

TEST_F(EntryTest, RefusesEverythingElseBeforeItHasATable) {
    for (LONG action : {C4DPL_INIT, C4DPL_END, C4DPL_MESSAGE, 5, 0, 99})
        EXPECT_EQ(c4d_main(action, nullptr, nullptr, nullptr), C4DPL_ERROR) << action;
    EXPECT_EQ(starts, 0);
    EXPECT_EQ(ends, 0);
}

TEST_F(EntryTest, RefusesAnOlderInterface) {
    table_.api_version = 13999;
    EXPECT_EQ(Start(), C4DPL_ERROR_VERSION);
    table_.api_version = 14000;
    EXPECT_EQ(Start(), 1);
}

TEST_F(EntryTest, RefusesATableOfAnotherLayout) {
    table_.layout = HOST_TABLE_LAYOUT + 1;
    EXPECT_EQ(Start(), C4DPL_ERROR_VERSION);
}

TEST_F(EntryTest, RefusesToStartWithoutATableOrAFile) {
    EXPECT_EQ(c4d_main(C4DPL_INIT_SYS, nullptr, nullptr, &file_), C4DPL_ERROR_VERSION);
    EXPECT_EQ(c4d_main(C4DPL_INIT_SYS, &table_, nullptr, nullptr), C4DPL_ERROR_VERSION);
}

TEST_F(EntryTest, RefusesToStartWithoutMemory) {
    BareHost::exhausted() = true;
    EXPECT_EQ(Start(), C4DPL_ERROR_MEM);
    BareHost::exhausted() = false;
    EXPECT_EQ(c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr), C4DPL_ERROR);
}

TEST_F(EntryTest, InitAnswersWhatTheModuleSays) {
    ASSERT_EQ(Start(), 1);
    EXPECT_EQ(c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr), TRUE);
    answer = FALSE;
    EXPECT_EQ(c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr), FALSE);
    EXPECT_EQ(starts, 2);
}

TEST_F(EntryTest, HandsMessagesOn) {
    ASSERT_EQ(Start(), 1);
    int data = 0;
    EXPECT_EQ(c4d_main(C4DPL_MESSAGE, reinterpret_cast<void *>(std::intptr_t(C4DPL_STARTACTIVITY)), &data, nullptr), 1);
    EXPECT_EQ(last_message, 1000);
    EXPECT_EQ(last_data, &data);
    answer = FALSE;
    EXPECT_EQ(c4d_main(C4DPL_MESSAGE, nullptr, nullptr, nullptr), C4DPL_ERROR);
}

TEST_F(EntryTest, RefusesUnknownActions) {
    ASSERT_EQ(Start(), 1);
    EXPECT_EQ(c4d_main(5, nullptr, nullptr, nullptr), C4DPL_ERROR);
}

TEST_F(EntryTest, EndsWhenItsLastUserEnds) {
    ASSERT_EQ(Start(), 1);
    ASSERT_EQ(Start(), 1);
    EXPECT_EQ(c4d_main(C4DPL_END, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(c4d_main(C4DPL_END, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(c4d_main(C4DPL_END, nullptr, nullptr, nullptr), C4DPL_ERROR);
    EXPECT_EQ(ends, 1);
}

TEST_F(EntryTest, ThePluginPathIsTheFolderOfTheModulesFile) {
    EXPECT_FALSE(GeGetPluginPath().Content());
    ASSERT_EQ(Start(), 1);
    EXPECT_TRUE(GeGetPluginPath() == Filename("plugins") + "TremoluxCam");
}

}  // namespace
