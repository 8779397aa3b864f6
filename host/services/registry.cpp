#include "host/services/registry.h"

#include <algorithm>

#include "host/application.h"
#include "host/value/text.h"

namespace host {

namespace {

std::unique_ptr<Bitmap> CopyOf(const HostBitmap *icon) {
    return icon == nullptr ? nullptr : std::make_unique<Bitmap>(*static_cast<const Bitmap *>(icon));
}

bool Refuse(const std::string &line) {
    if (Application::Current() != nullptr) Application::Current()->console.Print(line);
    return false;
}

}  // namespace

CommandPlugin::~CommandPlugin() {
    if (self != nullptr && destroy != nullptr) destroy(self);
}

bool Registry::Register(const TagRegistration &tag) {
    if (refuse_tag || tag.node.allocate == nullptr) return false;
    const std::string id = std::to_string(tag.id);
    if (FindTag(tag.id) != nullptr || FindCommand(tag.id) != nullptr)
        return Refuse("plug-in id " + id + " is registered already");
    const std::string description = ToUtf8(tag.description);
    if (!description.empty() && !RegisterDescription(tag.id, description)) return false;

    auto plugin = std::make_unique<TagPlugin>();
    plugin->id = tag.id;
    plugin->info = tag.info;
    plugin->disk_level = tag.disk_level;
    plugin->name = ToUtf8(tag.name);
    plugin->description = description;
    plugin->icon = CopyOf(tag.icon);
    plugin->registration = tag.registration;
    plugin->node = tag.node;
    plugin->execute = tag.execute;
    plugin->add_to_execution = tag.add_to_execution;
    tags_.push_back(std::move(plugin));
    order_.push_back("tag " + id);
    return true;
}

bool Registry::Register(const CommandRegistration &command) {
    if (refuse_command || command.self == nullptr) return false;
    const std::string id = std::to_string(command.id);
    if (FindTag(command.id) != nullptr || FindCommand(command.id) != nullptr)
        return Refuse("plug-in id " + id + " is registered already");

    auto plugin = std::make_unique<CommandPlugin>();
    plugin->id = command.id;
    plugin->info = command.info;
    plugin->name = ToUtf8(command.name);
    plugin->help = ToUtf8(command.help);
    plugin->icon = CopyOf(command.icon);
    plugin->execute = command.execute;
    plugin->get_state = command.get_state;
    commands_.push_back(std::move(plugin));
    order_.push_back("command " + id);
    // From here on nothing can fail: the object is the registry's.
    commands_.back()->destroy = command.destroy;
    commands_.back()->self = command.self;
    return true;
}

bool Registry::RegisterDescription(std::int32_t id, const std::string &name) {
    if (FindDescription(id) != nullptr || DescriptionId(name) != 0)
        return Refuse("description \"" + name + "\" is registered already");
    descriptions_.emplace_back(id, name);
    return true;
}

const TagPlugin *Registry::FindTag(std::int32_t id) const {
    for (const auto &tag : tags_)
        if (tag->id == id) return tag.get();
    return nullptr;
}

const CommandPlugin *Registry::FindCommand(std::int32_t id) const {
    for (const auto &command : commands_)
        if (command->id == id) return command.get();
    return nullptr;
}

const std::string *Registry::FindDescription(std::int32_t id) const {
    for (const auto &[number, name] : descriptions_)
        if (number == id) return &name;
    return nullptr;
}

std::int32_t Registry::DescriptionId(const std::string &name) const {
    for (const auto &[number, known] : descriptions_)
        if (known == name) return number;
    return 0;
}

void Registry::Clear() {
    tags_.clear();
    commands_.clear();
    descriptions_.clear();
    order_.clear();
}

}  // namespace host
