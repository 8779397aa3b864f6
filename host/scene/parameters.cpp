// Reading and writing a node's parameters.
#include "host/scene/parameters.h"

#include <algorithm>
#include <cmath>

#include "host/description/description.h"
#include "host/scene/messages.h"
#include "host/scene/node.h"
#include "host/scene/object.h"
#include "host/value/descid.h"
#include "host/value/time.h"

namespace host {
namespace {

// A plug-in that reads parameters while it builds its description gets what is stored: asking for defaults again
// would never end.
thread_local bool building_description = false;

class BuildingMark {
  public:
    BuildingMark() { building_description = true; }
    ~BuildingMark() { building_description = false; }
};

Data LimitedReal(double value, const Container &settings) {
    if (const Data *least = settings.Find(kDescMin)) value = std::max(value, least->Real());
    if (const Data *most = settings.Find(kDescMax)) value = std::min(value, most->Real());
    return Data(value);
}

Data LimitedWhole(std::int32_t value, const Container &settings) {
    if (const Data *least = settings.Find(kDescMin)) value = std::max(value, least->Whole());
    if (const Data *most = settings.Find(kDescMax)) value = std::min(value, most->Whole());
    return Data(value);
}

double LimitOf(const Data &limit, double Vector::*part) {
    return limit.type == kDataVector ? limit.GetVector().*part : limit.Real();
}

Data LimitedVector(Vector value, const Container &settings) {
    for (double Vector::*part : {&Vector::x, &Vector::y, &Vector::z}) {
        if (const Data *least = settings.Find(kDescMin)) value.*part = std::max(value.*part, LimitOf(*least, part));
        if (const Data *most = settings.Find(kDescMax)) value.*part = std::min(value.*part, LimitOf(*most, part));
    }
    return Data(value);
}

Data Limited(const Data &data, const Container &settings) {
    if (data.type == kDataReal) return LimitedReal(data.Real(), settings);
    if (data.type == kDataWhole) return LimitedWhole(data.Whole(), settings);
    if (data.type == kDataVector) return LimitedVector(data.GetVector(), settings);
    return data;
}

// What the description says a parameter without a value is.
bool DescribedDefault(const Node *node, const TableDescID &id, Data *out) {
    DescribedParameter described;
    if (!FindDescribed(node, id, &described) || described.value_type == kDataNil) return false;
    if (described.is_component) {
        const std::int32_t component = LevelId(id, id.depth - 1);
        const Vector whole = described.settings.GetVector(kDescDefault);
        *out = Data(component == kVectorX ? whole.x : component == kVectorY ? whole.y : whole.z);
        return true;
    }
    const Data *declared = described.settings.Find(kDescDefault);
    *out = declared != nullptr ? ConvertedTo(*declared, described.value_type) : Data();
    if (out->type != described.value_type) *out = Data::OfType(described.value_type);
    return out->type != kDataNil;
}

}  // namespace

std::int32_t ValueTypeOf(std::int32_t described_type) {
    switch (described_type) {
        case kDescribedColor:
        case kDescribedNormal:
            return kDataVector;
        case kDescribedBool:
            return kDataWhole;
        case kDataWhole:
        case kDataReal:
        case kDataTime:
        case kDataVector:
        case kDataMatrix:
        case kDataString:
        case kDataFilename:
        case kDataLink:
            return described_type;
        default:
            return described_type > kDataCustom ? described_type : kDataNil;
    }
}

Data ConvertedTo(const Data &data, std::int32_t value_type) {
    if (value_type == kDataReal && data.type == kDataWhole) return Data(data.Real());
    if (value_type == kDataWhole && data.type == kDataReal) return Data(data.Whole());
    return data;
}

bool FindDescribed(const Node *node, const TableDescID &id, DescribedParameter *out) {
    if (node == nullptr || building_description || id.depth < 1) return false;
    const BuildingMark mark;
    Description description;
    if (!BuildDescription(node, nullptr, 0, &description)) return false;
    const Description::Entry *entry = description.Find(id);
    out->is_component = false;
    if (entry == nullptr && id.depth > 1) {
        TableDescID vector = id;
        --vector.depth;
        const std::int32_t component = LevelId(id, id.depth - 1);
        entry = description.Find(vector);
        if (component < kVectorX || component > kVectorZ) entry = nullptr;
        if (entry != nullptr && ValueTypeOf(entry->id.level[entry->id.depth - 1].dtype) != kDataVector) entry = nullptr;
        out->is_component = entry != nullptr;
    }
    if (entry == nullptr) return false;
    out->described_type = entry->id.level[entry->id.depth - 1].dtype;
    out->value_type = out->is_component ? static_cast<std::int32_t>(kDataReal) : ValueTypeOf(out->described_type);
    out->settings = entry->settings;
    return true;
}

bool Node::IsVirtualParameter(const TableDescID &id) const { return LevelId(id, 0) == kParamName; }

bool Node::GetVirtualParameter(const TableDescID &id, host::Data *out) const {
    if (id.depth != 1 || LevelId(id, 0) != kParamName) return false;
    *out = host::Data(Name());
    return true;
}

bool Node::SetVirtualParameter(const TableDescID &id, const host::Data &data) {
    if (id.depth != 1 || LevelId(id, 0) != kParamName || data.type != kDataString) return false;
    SetName(data.Text());
    return true;
}

bool Node::GetPluginParameter(const TableDescID &, host::Data *, std::int32_t) const { return false; }
bool Node::SetPluginParameter(const TableDescID &, const host::Data &, std::int32_t) { return false; }

bool Node::GetParameter(const TableDescID &id, host::Data *out, std::int32_t flags) const {
    if (out == nullptr) return false;
    *out = host::Data();
    if (id.depth < 1 || id.depth > TABLE_DESC_LEVELS) return false;
    if (GetPluginParameter(id, out, flags)) return true;
    if (GetVirtualParameter(id, out)) return true;
    if (data_.GetParameter(id, out)) return true;
    *out = host::Data();
    return DescribedDefault(this, id, out);
}

bool Node::SetParameter(const TableDescID &id, const host::Data &data, std::int32_t flags) {
    if (id.depth < 1 || id.depth > TABLE_DESC_LEVELS) return false;
    host::Data value = data;
    DescribedParameter described;
    // Only what a user enters is held to the description: building it for every write of a plug-in would cost more
    // than all the rest of a frame.
    if ((flags & kSetUserInteraction) != 0 && FindDescribed(this, id, &described)) {
        if (described.value_type == kDataNil) return false;
        value = ConvertedTo(value, described.value_type);
        if ((flags & kSetDontCheckLimits) == 0) value = Limited(value, described.settings);
    }
    if (!SetPluginParameter(id, value, flags)) {
        const bool written = IsVirtualParameter(id) ? SetVirtualParameter(id, value) : data_.SetParameter(id, value);
        if (!written) return false;
    }
    SetDirty(kDirtyData);
    TableDescriptionPostSetValue message{&id};
    SendMessage(kMessagePostSetParameter, &message);
    return true;
}

bool Node::WriteAnimated(const TableDescID &id, const host::Data &data) {
    if (!(IsVirtualParameter(id) ? SetVirtualParameter(id, data) : data_.SetParameter(id, data))) return false;
    SetDirty(kDirtyData);
    return true;
}

bool Node::WriteAnimated(const TableDescID &id, double value) {
    if (id.depth == 1) {
        // A whole number stays one: what reads it may ask for its type.
        const host::Data *present = data_.Find(id.level[0].id);
        if (present != nullptr && present->type == kDataWhole)
            return WriteAnimated(id, host::Data(TruncatedWhole(value)));
        // Curves hold times in seconds; a time made of those has thousandths.
        if (present != nullptr && present->type == kDataTime)
            return WriteAnimated(id, host::Data(MakeTime(value * 1000, 1000)));
    }
    return WriteAnimated(id, host::Data(value));
}

}  // namespace host
