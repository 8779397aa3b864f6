#include "host/watch/watched_table.h"

#include "host/table/entries.h"
#include "host/watch/watched_call.h"

namespace host {

namespace {

// What the judge asks of the callers of each entry.
#define TABLE(Name, part) \
    struct Name##Rows {   \
        static constexpr const char *kPart = #part;
#define ENTRY(answer, name, arguments, letters, rules) \
    static constexpr WatchedEntry name = {kPart, #name, letters, rules};
#define END_TABLE(Name) \
    }                   \
    ;
#include "platform/table_entries.inc"

#define TABLE(Name, part)             \
    struct Watched##Name {            \
        using Bodies = Name##Entries; \
        using Rows = Name##Rows;      \
        static constexpr Name##Table table = {
#define ENTRY(answer, name, arguments, letters, rules) WatchedCall<&Rows::name, &Bodies::name>::Call,
#define END_TABLE(Name) \
    }                   \
    ;                   \
    }                   \
    ;
#include "platform/table_entries.inc"

}  // namespace

const HostTable *WatchedTable() {
    FollowAtoms();
    static const HostTable table = {
        HOST_TABLE_MARK,
        HOST_TABLE_LAYOUT,
        HOST_TABLE_API_VERSION,
#define TABLE(Name, part) &Watched##Name::table,
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
#include "platform/table_entries.inc"
    };
    return &table;
}

}  // namespace host
