#include "host/description/description.h"

#include <algorithm>

#include "host/application.h"
#include "host/description/builtin.h"
#include "host/scene/tag.h"
#include "host/watch/operation.h"

namespace host {

namespace {

constexpr std::int32_t kLoaded = 2;

// What the module's own code builds; false: it leaves the description to the host.
bool BuildByPlugin(const Tag &tag, std::int32_t flags, Description *out) {
    const auto build = tag.Registration().node.get_description;
    if (build == nullptr || tag.Plugin() == nullptr) return false;
    const Operation operation("GetDDescription");
    // The flag counts, not the answer: plug-ins set it and then return their base class's FALSE.
    build(tag.Plugin(), const_cast<Tag *>(&tag), out, &flags);
    return (flags & kLoaded) != 0;
}

}  // namespace

bool Description::Load(std::int32_t id) {
    std::deque<Entry> loaded = BuiltInEntries(id);
    if (loaded.empty()) {
        const Application *application = Application::Current();
        const std::string *name = application == nullptr ? nullptr : application->registry.FindDescription(id);
        if (name == nullptr) return false;
        const TagPlugin *plugin = application->registry.FindTag(id);
        loaded = TagEntries(id, plugin == nullptr ? *name : plugin->name);
    }
    entries = std::move(loaded);
    return true;
}

Description::Entry *Description::Find(const TableDescID &id) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry &e) { return SameId(e.id, id); });
    return found == entries.end() ? nullptr : &*found;
}

bool Description::Set(const TableDescID &id, const Container &settings, const TableDescID &group) {
    if (id.depth < 1 || id.depth > TABLE_DESC_LEVELS || group.depth < 0 || group.depth > TABLE_DESC_LEVELS)
        return false;
    if (Entry *existing = Find(id); existing != nullptr)
        existing->settings = settings;
    else
        entries.push_back({id, group, settings});
    return true;
}

bool BuildDescription(const Node *node, const TableDescID *single, std::int32_t flags, Description *out) {
    out->entries.clear();
    out->has_single_id = single != nullptr;
    out->single_id = single == nullptr ? TableDescID{} : *single;
    if (node == nullptr) return false;
    if (const auto *tag = dynamic_cast<const Tag *>(node); tag != nullptr && BuildByPlugin(*tag, flags, out))
        return true;
    return out->Load(node->Type());
}

}  // namespace host
