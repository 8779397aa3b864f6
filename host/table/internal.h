// The sub-tables, each in the file of its name.
#pragma once

#include "platform/table.h"

namespace host {

const GeneralTable *GeneralEntries();
const MathTable *MathEntries();
const DataTable *DataEntries();
const ContainerTable *ContainerEntries();
const LinkTable *LinkEntries();
const CustomDataTable *CustomDataEntries();
const AtomTable *AtomEntries();
const ListTable *ListEntries();
const ObjectTable *ObjectEntries();
const DocumentTable *DocumentEntries();
const AnimationTable *AnimationEntries();
const DescriptionTable *DescriptionEntries();
const FileTable *FileEntries();
const BitmapTable *BitmapEntries();

}  // namespace host
