// c4d_main: the module's one export. Everything else goes through the table that it is given here.
#include <algorithm>
#include <iterator>

#include "c4d_plugin.h"
#include "platform/glue/handles.h"

namespace {

// How often the module was started and not ended: the host may start it once for each of its parts.
LONG use_count = 0;

// Another host's table may be shorter than the mark alone: it is read from its front, byte by byte, and no further than
// it agrees. `volatile` keeps a compiler from reading ahead.
bool IsMarked(const void *table) {
    static const UCHAR mark[] = HOST_TABLE_MARK;
    static_assert(sizeof(mark) == HOST_TABLE_MARK_BYTES, "the mark fills its place");
    const volatile UCHAR *found = static_cast<const volatile UCHAR *>(table);
    for (std::size_t i = 0; i < sizeof(mark); ++i)
        if (found[i] != mark[i]) return false;
    return true;
}

bool IsComplete(const HostTable *table) {
    const void *const parts[] = {
#define TABLE(Name, part) table->part,
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
#include "platform/table_entries.inc"
    };
    return std::find(std::begin(parts), std::end(parts), nullptr) == std::end(parts);
}

// The table that the module was built for, or NULL.
const HostTable *OwnTable(const void *memory) {
    if (!memory || !IsMarked(memory)) return NULL;
    const HostTable *table = static_cast<const HostTable *>(memory);
    if (table->layout != HOST_TABLE_LAYOUT || table->api_version < API_VERSION) return NULL;
    return IsComplete(table) ? table : NULL;
}

LONG Start(const void *memory, const TableFilename *file) {
    if (use_count > 0) {
        ++use_count;
        return 1;
    }
    const HostTable *table = OwnTable(memory);
    if (!table || !file) return C4DPL_ERROR_VERSION;
    host_table = table;
    module_file = gNew Filename(*FromTable(file));
    if (!module_file) return C4DPL_ERROR_MEM;
    use_count = 1;
    return 1;
}

LONG End() {
    if (--use_count > 0) return 1;
    PluginEnd();
    gDelete(module_file);
    return 1;
}

}  // namespace

LONG c4d_main(LONG action, void *p1, void *p2, void *p3) {
    switch (action) {
        case C4DPL_INIT_VERSION:
            return C4DPL_VERSION;
        case C4DPL_INIT_SYS:
            return Start(p1, static_cast<const TableFilename *>(p3));
        default:
            break;
    }
    // Without a table nothing else can be answered.
    if (use_count == 0) return C4DPL_ERROR;
    switch (action) {
        case C4DPL_INIT:
            return PluginStart();
        case C4DPL_END:
            return End();
        case C4DPL_MESSAGE:
            return PluginMessage(static_cast<LONG>(reinterpret_cast<VLONG>(p1)), p2) ? 1 : C4DPL_ERROR;
        default:
            return C4DPL_ERROR;
    }
}
