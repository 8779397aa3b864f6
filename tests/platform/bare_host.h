// The least a value class needs of a host: memory, and a parser whose answer the test chooses.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "c4d.h"
#include "platform/glue/host.h"

class BareHost {
  public:
    BareHost() : previous_(host_table) {
        static const GeneralTable general = MakeGeneral();
        static const MathTable math = MakeMath();
        static const HostTable table = MakeTable(&general, &math);
        parsed() = 0.0;
        parses() = true;
        host_table = &table;
    }
    ~BareHost() { host_table = previous_; }

    // What the parser answers.
    static double &parsed() {
        static double value = 0.0;
        return value;
    }
    static bool &parses() {
        static bool value = true;
        return value;
    }
    // While set, there is no memory.
    static bool &exhausted() {
        static bool value = false;
        return value;
    }

  private:
    static GeneralTable MakeGeneral() {
        GeneralTable table = {};
        table.allocate = [](std::int64_t bytes) {
            return bytes < 0 || exhausted() ? nullptr : std::calloc(1, static_cast<std::size_t>(bytes));
        };
        table.allocate_uncleared = [](std::int64_t bytes) {
            return bytes < 0 || exhausted() ? nullptr : std::malloc(static_cast<std::size_t>(bytes));
        };
        table.reallocate = [](void *old, std::int64_t bytes) {
            return bytes < 0 || exhausted() ? nullptr : std::realloc(old, static_cast<std::size_t>(bytes));
        };
        table.release = [](void *memory) { std::free(memory); };
        return table;
    }
    static MathTable MakeMath() {
        MathTable table = {};
        table.parse = [](const TableString *, double *out) -> std::int32_t {
            *out = parsed();
            return parses();
        };
        return table;
    }
    static HostTable MakeTable(const GeneralTable *general, const MathTable *math) {
        return {HOST_TABLE_MARK,
                HOST_TABLE_LAYOUT,
                HOST_TABLE_API_VERSION,
                general,
                math,
                Empty<DataTable>(),
                Empty<ContainerTable>(),
                Empty<LinkTable>(),
                Empty<CustomDataTable>(),
                Empty<AtomTable>(),
                Empty<ListTable>(),
                Empty<ObjectTable>(),
                Empty<DocumentTable>(),
                Empty<AnimationTable>(),
                Empty<DescriptionTable>(),
                Empty<FileTable>(),
                Empty<BitmapTable>()};
    }
    // A part that is there and can do nothing.
    template <class Part>
    static const Part *Empty() {
        static const Part part = {};
        return &part;
    }

    const HostTable *previous_;
};
