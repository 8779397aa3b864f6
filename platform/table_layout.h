// What the structs of the border look like to every compiler that builds a host or a module: 64-bit Linux, 64-bit
// Windows and 32-bit WebAssembly. Needs nothing but the table, so that any of them can be asked.
#pragma once

#include <stddef.h>

#include "platform/table.h"

// The width of a pointer is the platform's own; whole numbers have theirs, and a double stands at a multiple of 8.
#define TABLE_POINTER sizeof(void *)
static_assert(TABLE_POINTER == 8 || TABLE_POINTER == 4, "a pointer has 64 or 32 bits");
static_assert(sizeof(void (*)(void)) == TABLE_POINTER, "an entry is as wide as a pointer");
static_assert(alignof(double) == 8 && alignof(int64_t) == 8 && alignof(int32_t) == 4, "numbers stand at their width");

#define TABLE_SIZE(Struct, bytes) static_assert(sizeof(Struct) == (bytes), #Struct)
#define TABLE_PLACE(Struct, member, bytes) static_assert(offsetof(Struct, member) == (bytes), #Struct "." #member)

TABLE_SIZE(TableVector, 24);
TABLE_SIZE(TableMatrix, 96);
TABLE_SIZE(TableTime, 16);
TABLE_SIZE(TableString, 8 + 2 * TABLE_POINTER);
TABLE_PLACE(TableString, text, 8);
TABLE_SIZE(TableFilename, 8 + 3 * TABLE_POINTER);
TABLE_SIZE(TableContainer, 8 + TABLE_POINTER);
TABLE_PLACE(TableContainer, id, TABLE_POINTER);
TABLE_SIZE(TableData, 16);
TABLE_PLACE(TableData, value, 8);
TABLE_SIZE(TableDescID, 4 + TABLE_DESC_LEVELS * 12);
TABLE_SIZE(TableSplineKnot, 88);
TABLE_PLACE(TableSplineKnot, tangent_left, 32);
TABLE_PLACE(TableSplineKnot, interpolation, 80);
TABLE_SIZE(TableFileTime, 12);

// A number of four bytes before a pointer takes the pointer's room.
TABLE_PLACE(TableDescriptionCheckUpdate, id, 2 * TABLE_POINTER);
TABLE_PLACE(TableDescriptionCommand, message, TABLE_POINTER == 8 ? 104 : 100);
TABLE_PLACE(TableDocumentInfo, document, 8);
TABLE_PLACE(TableIconData, x, TABLE_POINTER);
TABLE_PLACE(TableDragAndDrop, data, 8 + 2 * TABLE_POINTER);
TABLE_PLACE(TagRegistration, name, TABLE_POINTER == 8 ? 16 : 12);

// Read before anything else is trusted.
TABLE_PLACE(HostTable, mark, 0);
TABLE_PLACE(HostTable, layout, HOST_TABLE_MARK_BYTES);
TABLE_PLACE(HostTable, api_version, HOST_TABLE_MARK_BYTES + 4);
TABLE_PLACE(HostTable, general, HOST_TABLE_MARK_BYTES + 8);

#undef TABLE_SIZE
#undef TABLE_PLACE

// An entry more or less is another layout.
#define TABLE(Name, part) +sizeof(Name##Table)
#define ENTRY(answer, name, arguments, letters, rules)
#define END_TABLE(Name)
static_assert((0
#include "platform/table_entries.inc"
               ) == HOST_TABLE_ENTRIES * TABLE_POINTER,
              "HOST_TABLE_LAYOUT grows with HOST_TABLE_ENTRIES");
#undef TABLE_POINTER
