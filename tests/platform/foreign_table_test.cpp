// What a host hands over that is not the embedded one: its table has another shape, and nothing in it may be followed.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "tests/platform/bare_host.h"

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace {

class ForeignTableTest : public testing::Test {
  protected:
    void SetUp() override { table_ = *host_table; }
    void TearDown() override {
        while (c4d_main(C4DPL_END, nullptr, nullptr, nullptr) == 1) {
        }
    }

    // `table`: whatever the application says is its table.
    LONG StartWith(void *table) { return c4d_main(C4DPL_INIT_SYS, table, nullptr, &file_); }

    // A table that was taken for ours would be followed, and these lead nowhere.
    void ExpectRefused(void *table, const char *what) {
        const HostTable *const kept = host_table;
        ASSERT_EQ(StartWith(table), C4DPL_ERROR_VERSION) << what;
        EXPECT_EQ(host_table, kept) << what;
        EXPECT_EQ(module_file, nullptr) << what;
        EXPECT_EQ(c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr), C4DPL_ERROR) << what;
    }

    BareHost host_;
    HostTable table_;
    Filename file_ = Filename("plugins") + "TremoluxCam.so";
};

// Longer than our table, aligned like one.
using Words = std::array<std::uint64_t, 64>;
static_assert(sizeof(Words) > sizeof(HostTable), "what is read lies within");

Words Noise(std::mt19937_64 *random) {
    Words words;
    for (std::uint64_t &word : words) word = (*random)();
    return words;
}

TEST_F(ForeignTableTest, StartsWithATableOfOurs) { EXPECT_EQ(StartWith(&table_), 1); }

TEST_F(ForeignTableTest, RefusesRandomMemory) {
    std::mt19937_64 random(14);
    for (int round = 0; round < 100000; ++round) {
        Words words = Noise(&random);
        ExpectRefused(words.data(), "random memory");
    }
}

TEST_F(ForeignTableTest, RefusesMemoryOfOneByte) {
    for (int byte = 0; byte < 256; ++byte) {
        Words words;
        std::memset(words.data(), byte, sizeof(words));
        ExpectRefused(words.data(), "one byte over and over");
    }
}

// The application's own table begins with its release, 14000 and its updates, or that of a later release.
TEST_F(ForeignTableTest, RefusesARightReleaseBeforeNoise) {
    std::mt19937_64 random(140);
    for (std::int32_t release = 12000; release < 20000; ++release) {
        for (std::int32_t second = 0; second <= HOST_TABLE_LAYOUT + 1; ++second) {
            Words words = Noise(&random);
            std::memcpy(words.data(), &release, sizeof(release));
            ExpectRefused(words.data(), "a release before noise");
            std::memcpy(reinterpret_cast<char *>(words.data()) + sizeof(release), &second, sizeof(second));
            ExpectRefused(words.data(), "a release and a small number before noise");
        }
    }
}

TEST_F(ForeignTableTest, RefusesTheRightReleaseAndLayoutInNoiseWithoutTheMark) {
    std::mt19937_64 random(1400);
    for (int round = 0; round < 10000; ++round) {
        Words words = Noise(&random);
        auto *bytes = reinterpret_cast<char *>(words.data());
        std::memcpy(bytes + offsetof(HostTable, layout), &table_.layout, sizeof(table_.layout));
        std::memcpy(bytes + offsetof(HostTable, api_version), &table_.api_version, sizeof(table_.api_version));
        ExpectRefused(words.data(), "our numbers in noise");
    }
}

TEST_F(ForeignTableTest, RefusesAMarkWithOneBitChanged) {
    for (std::size_t bit = 0; bit < 8 * sizeof(table_.mark); ++bit) {
        HostTable changed = table_;
        changed.mark[bit / 8] = static_cast<std::uint8_t>(changed.mark[bit / 8] ^ (1u << bit % 8));
        ExpectRefused(&changed, "one bit of the mark");
    }
}

TEST_F(ForeignTableTest, RefusesOlderAndNewerLayoutsWithNoiseBehindTheMark) {
    std::mt19937_64 random(3);
    constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();
    for (std::int32_t layout : {0, 1, 2, HOST_TABLE_LAYOUT - 1, HOST_TABLE_LAYOUT + 1, HOST_TABLE_LAYOUT + 100, kEnd,
                                -1, -HOST_TABLE_LAYOUT}) {
        Words words = Noise(&random);
        auto *bytes = reinterpret_cast<char *>(words.data());
        std::memcpy(bytes, table_.mark, sizeof(table_.mark));
        std::memcpy(bytes + offsetof(HostTable, layout), &layout, sizeof(layout));
        std::memcpy(bytes + offsetof(HostTable, api_version), &table_.api_version, sizeof(table_.api_version));
        ExpectRefused(words.data(), "another layout");
    }
}

// As tables were before they had a mark: the release, the layout, the parts.
TEST_F(ForeignTableTest, RefusesATableWithoutAMark) {
    for (std::int32_t layout : {1, 2, HOST_TABLE_LAYOUT}) {
        struct Unmarked {
            std::int32_t api_version, layout;
            const void *parts[14];
        } unmarked = {HOST_TABLE_API_VERSION, layout, {}};
        std::memcpy(unmarked.parts, &table_.general, sizeof(unmarked.parts));
        ExpectRefused(&unmarked, "a table without a mark");
    }
}

TEST_F(ForeignTableTest, RefusesATableThatLacksAPart) {
    const std::size_t parts = (sizeof(HostTable) - offsetof(HostTable, general)) / sizeof(void *);
    EXPECT_EQ(parts, 14u);
    for (std::size_t part = 0; part < parts; ++part) {
        HostTable lacking = table_;
        std::memset(reinterpret_cast<char *>(&lacking) + offsetof(HostTable, general) + part * sizeof(void *), 0,
                    sizeof(void *));
        ExpectRefused(&lacking, "a part is missing");
    }
}

#ifdef __linux__
// Memory that ends where nothing may be read: whoever reads past it crashes.
class LastBytes {
  public:
    LastBytes() : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        memory_ =
            static_cast<char *>(mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(memory_ + page_, page_, PROT_NONE);
    }
    ~LastBytes() { munmap(memory_, 2 * page_); }
    LastBytes(const LastBytes &) = delete;
    LastBytes &operator=(const LastBytes &) = delete;

    void *Put(const std::vector<char> &bytes) {
        char *const start = memory_ + page_ - bytes.size();
        std::memcpy(start, bytes.data(), bytes.size());
        return start;
    }

  private:
    std::size_t page_;
    char *memory_;
};

TEST_F(ForeignTableTest, ReadsATableNoFurtherThanItsFirstDifference) {
    LastBytes memory;
    for (std::size_t length = 1; length <= sizeof(table_.mark); ++length) {
        std::vector<char> bytes(length);
        std::memcpy(bytes.data(), table_.mark, length);
        bytes.back() = static_cast<char>(~bytes.back());
        ExpectRefused(memory.Put(bytes), "ends with its first difference");
    }
}

TEST_F(ForeignTableTest, ReadsATableOfAnotherLayoutOrReleaseNoFurtherThanItsNumbers) {
    LastBytes memory;
    HostTable newer = table_, older = table_;
    newer.layout = HOST_TABLE_LAYOUT + 1;
    older.api_version = HOST_TABLE_API_VERSION - 1;
    for (const HostTable &table : {newer, older}) {
        std::vector<char> bytes(offsetof(HostTable, general));
        std::memcpy(bytes.data(), &table, bytes.size());
        ExpectRefused(memory.Put(bytes), "ends with its numbers");
    }
}
#endif

}  // namespace
