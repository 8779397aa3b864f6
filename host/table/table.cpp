#include "host/application.h"
#include "host/table/internal.h"

namespace host {

const HostTable *Application::Table() {
    static const HostTable table = {HOST_TABLE_MARK,     HOST_TABLE_LAYOUT,  HOST_TABLE_API_VERSION, GeneralEntries(),
                                    MathEntries(),       DataEntries(),      ContainerEntries(),     LinkEntries(),
                                    CustomDataEntries(), AtomEntries(),      ListEntries(),          ObjectEntries(),
                                    DocumentEntries(),   AnimationEntries(), DescriptionEntries(),   FileEntries(),
                                    BitmapEntries()};
    return &table;
}

}  // namespace host
