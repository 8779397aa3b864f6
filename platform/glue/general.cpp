#include "c4d_general.h"
#include "platform/glue/handles.h"
#include "platform/glue/numbers.h"

namespace {

const GeneralTable *Table() { return host_table->general; }

}  // namespace

LONG GetC4DVersion() { return Table()->host_version(); }
VERSIONTYPE GeGetVersionType() { return static_cast<VERSIONTYPE>(Table()->version_type()); }
OPERATINGSYSTEM GeGetCurrentOS() { return static_cast<OPERATINGSYSTEM>(Table()->operating_system()); }
Bool GeIsMainThread() { return Table()->is_main_thread(); }

void GePrint(const String &text) { Table()->print(ToTable(&text)); }

GEMB_R GeOutString(const String &text, GEMB flags) {
    return static_cast<GEMB_R>(Table()->message_box(ToTable(&text), flags));
}

Bool GeOpenHTML(const String &address) { return Table()->open_web_page(ToTable(&address)); }

void StatusSetBar(LONG percent) { Table()->status_bar(percent); }
void StatusClear() { Table()->status_clear(); }

void StopAllThreads() { Table()->stop_all_threads(); }
void EventAdd(EVENT flags) { Table()->event_add(flags); }
void CallCommand(LONG id) { Table()->call_command(id); }

BaseContainer *GetWorldPluginData(LONG id) { return FromTable(Table()->world_plugin_data(id)); }

Bool SetWorldPluginData(LONG id, const BaseContainer &data, Bool add) {
    return Table()->set_world_plugin_data(id, ToTable(&data), add);
}
