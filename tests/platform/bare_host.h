// The least a value class needs of a host: memory.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "c4d.h"
#include "platform/glue/host.h"

class BareHost {
  public:
    BareHost() : previous_(host_table) {
        static const GeneralTable general = MakeGeneral();
        static const HostTable table = MakeTable(&general);
        host_table = &table;
    }
    ~BareHost() { host_table = previous_; }

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
        table.release = [](void *memory) { std::free(memory); };
        return table;
    }
    static HostTable MakeTable(const GeneralTable *general) {
        HostTable table = {
            HOST_TABLE_MARK,
            HOST_TABLE_LAYOUT,
            HOST_TABLE_API_VERSION,
#define TABLE(Name, part) Empty<Name##Table>(),
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
#include "platform/table_entries.inc"
        };
        table.general = general;
        return table;
    }
    // A part that is there and can do nothing.
    template <class Part>
    static const Part *Empty() {
        static const Part part = {};
        return &part;
    }

    const HostTable *previous_;
};
