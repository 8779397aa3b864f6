#include "library/trace/private_state.h"

#include "host/scene/document.h"
#include "library/parameters/parameter.h"

namespace tremolux {

PrivateState::PrivateState(const host::Tag &tag) : tag_(tag) {
    for (const Parameter &parameter : DescribedParameters(tag)) described_.insert(parameter.id);
}

Json PrivateState::Changes() {
    std::map<std::int32_t, host::Data> now;
    const host::Container &data = tag_.Data();
    for (std::int32_t i = 0; i < data.Count(); ++i) {
        if (described_.count(data.IdAt(i)) == 0) now.emplace(data.IdAt(i), *data.DataAt(i));
    }
    Json changes = Json::object();
    for (const auto &[id, value] : now) {
        const auto before = last_.find(id);
        if (before != last_.end() && host::EqualData(before->second, value)) continue;
        changes[std::to_string(id)] = JsonValue(value, tag_.GetDocument());
    }
    for (const auto &[id, value] : last_) {
        if (now.count(id) == 0) changes[std::to_string(id)] = nullptr;
    }
    last_ = std::move(now);
    return changes;
}

}  // namespace tremolux
