// What happens when a user edits a parameter or presses a button: one undo step with the messages of the manager.
#pragma once

#include "host/value/container.h"
#include "platform/table.h"

namespace host {

class Node;

// false when the parameter's control is disabled, unknown, or takes no value of that kind. The document is evaluated
// afterwards where the edit or the module asked for it.
bool EditParameter(Node *node, const TableDescID &id, const Data &value);
bool PressButton(Node *node, const TableDescID &id);

// Whether the parameter's control answers to the user, by the plug-in's word; `settings` are those of its description.
bool IsControlEnabled(Node *node, const TableDescID &id, const Container &settings);

}  // namespace host
