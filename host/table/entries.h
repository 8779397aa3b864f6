// The bodies of the function table's entries, each group in the file of its name. One that is not written does not
// link.
#pragma once

#include "platform/table.h"

namespace host {

#define TABLE(Name, part) struct Name##Entries {
#define ENTRY(answer, name, arguments, letters, rules) static answer name arguments;
#define END_TABLE(Name) \
    }                   \
    ;
#include "platform/table_entries.inc"

}  // namespace host
