// What a node's description says about one parameter, and values brought into its form.
#pragma once

#include "host/value/container.h"
#include "host/value/data.h"

namespace host {

class Node;

enum SetFlag : std::int32_t { kSetHandled = 2, kSetUserInteraction = 4, kSetDontCheckLimits = 8 };
constexpr std::int32_t kGetHandled = 2;

// Types of description entries beside those of values.
enum DescribedType : std::int32_t {
    kDescribedGroup = 1,
    kDescribedColor = 3,
    kDescribedButton = 8,
    kDescribedSeparator = 11,
    kDescribedStaticText = 12,
    kDescribedBool = 400006001,
    kDescribedNormal = 400006005
};

struct DescribedParameter {
    std::int32_t described_type = 0;
    std::int32_t value_type = kDataNil;  // nil: a group, a button, ...: it holds no value
    bool is_component = false;           // a number of a described vector
    Container settings;
};

// Slow: the whole description is built. false: not described.
bool FindDescribed(const Node *node, const TableDescID &id, DescribedParameter *out);
std::int32_t ValueTypeOf(std::int32_t described_type);
// Whole numbers and reals turn into each other; anything else stays.
Data ConvertedTo(const Data &data, std::int32_t value_type);

}  // namespace host
