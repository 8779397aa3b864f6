#include "c4d_gui.h"
#include "c4d_resource.h"
#include "platform/glue/handles.h"

void MessageDialog(const String &text) { host_table->general->message_box(ToTable(&text), GEMB_OK); }

Bool QuestionDialog(const String &text) { return host_table->general->question(ToTable(&text)); }

Bool RenameDialog(String *text) { return text && host_table->general->rename(ToTable(text)); }

Bool GetInputState(LONG askdevice, LONG askchannel, BaseContainer &res) {
    return host_table->general->input_state(askdevice, askchannel, ToTable(&res));
}
