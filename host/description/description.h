// A description: the parameters of a node, with their groups and settings, in the order of display.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "host/value/container.h"
#include "host/value/descid.h"

struct HostDescription {
    virtual ~HostDescription() = default;
};

namespace host {

class Node;

// Keys of an entry's settings.
enum DescriptionKey : std::int32_t {
    kDescName = 1,
    kDescShortName = 2,
    kDescMin = 5,
    kDescMax = 6,
    kDescMinExclusive = 7,
    kDescMaxExclusive = 8,
    kDescStep = 9,
    kDescAnimate = 10,
    kDescUnit = 12,
    kDescParentGroup = 13,
    kDescCycle = 14,
    kDescHide = 15,
    kDescDefault = 16,
    kDescSeparatorLine = 18,
    kDescCustomGui = 21,
    kDescColumns = 22,
    kDescMinSlider = 27,
    kDescMaxSlider = 28,
    kDescScaleH = 30
};

class Description : public HostDescription {
  public:
    struct Entry {
        TableDescID id, group;
        Container settings;
    };
    // The registered description of a tag's type, or a built-in one (objects, cameras, documents). Replaces what is
    // there; false when there is none.
    bool Load(std::int32_t id);
    Entry *Find(const TableDescID &id);
    // Adds, or changes the settings of an existing entry and leaves its place.
    bool Set(const TableDescID &id, const Container &settings, const TableDescID &group);
    std::deque<Entry> entries;  // a deque: settings that were handed out stay where they are when entries are added
    bool has_single_id = false;
    TableDescID single_id{};
};

// The node's own description: what its plug-in builds, or the loaded one. `single` null: everything.
bool BuildDescription(const Node *node, const TableDescID *single, std::int32_t flags, Description *out);

}  // namespace host
