// c4d_main: the module's one export. Everything else goes through the table that it is given here.
#include "c4d_plugin.h"
#include "c4d_resource.h"
#include "platform/glue/handles.h"

namespace {

// How often the module was started and not ended: the host may start it once for each of its parts.
LONG use_count = 0;

LONG Start(const HostTable *table, const TableFilename *file) {
    if (use_count > 0) {
        ++use_count;
        return 1;
    }
    // The version stands first in the table and is trusted before anything else.
    if (!table || table->api_version < API_VERSION || table->layout != HOST_TABLE_LAYOUT || !file)
        return C4DPL_ERROR_VERSION;
    host_table = table;
    module_file = gNew Filename(*FromTable(file));
    if (!module_file) return C4DPL_ERROR_MEM;
    use_count = 1;
    return 1;
}

LONG End() {
    if (--use_count > 0) return 1;
    PluginEnd();
    FreeResource();
    gDelete(module_file);
    return 1;
}

}  // namespace

LONG c4d_main(LONG action, void *p1, void *p2, void *p3) {
    switch (action) {
        case C4DPL_INIT_VERSION:
            return C4DPL_VERSION;
        case C4DPL_INIT_SYS:
            return Start(static_cast<const HostTable *>(p1), static_cast<const TableFilename *>(p3));
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
