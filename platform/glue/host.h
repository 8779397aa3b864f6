// What c4d_main was given: the host's table, and the name of the module's file.
#pragma once

#include "c4d_filename.h"
#include "platform/table.h"

// NULL before the host has handed over its table. It stays after the module's end, so that values which live until
// the library is unloaded can still be released.
extern const HostTable *host_table;

// NULL outside of the module's life.
extern Filename *module_file;
