#include "host/application.h"
#include "host/table/entries.h"
#include "platform/table_layout.h"

namespace host {

namespace {

#define TABLE(Name, part)             \
    struct Name##Bodies {             \
        using Bodies = Name##Entries; \
        static constexpr Name##Table table = {
#define ENTRY(answer, name, arguments, letters, rules) &Bodies::name,
#define END_TABLE(Name) \
    }                   \
    ;                   \
    }                   \
    ;
#include "platform/table_entries.inc"

}  // namespace

const HostTable *Application::Table() {
    static const HostTable table = {
        HOST_TABLE_MARK,
        HOST_TABLE_LAYOUT,
        HOST_TABLE_API_VERSION,
#define TABLE(Name, part) &Name##Bodies::table,
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
#include "platform/table_entries.inc"
    };
    return &table;
}

}  // namespace host
