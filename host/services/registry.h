// What modules have registered.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/services/bitmap.h"
#include "platform/table.h"

namespace host {

struct TagPlugin {
    std::int32_t id = 0, info = 0, disk_level = 0;
    std::string name, description;
    std::unique_ptr<Bitmap> icon;
    void *registration = nullptr;
    NodeCallbacks node{};
    decltype(TagRegistration::execute) execute = nullptr;
    decltype(TagRegistration::add_to_execution) add_to_execution = nullptr;
};

struct CommandPlugin {
    std::int32_t id = 0, info = 0;
    std::string name, help;
    std::unique_ptr<Bitmap> icon;
    ModuleObject *self = nullptr;  // owned: destroyed when the registry forgets it
    decltype(CommandRegistration::destroy) destroy = nullptr;
    decltype(CommandRegistration::execute) execute = nullptr;
    decltype(CommandRegistration::get_state) get_state = nullptr;
    ~CommandPlugin();
};

class Registry {
  public:
    // false, with a line on the console, for an id that is taken. A tag with a description also needs that.
    bool Register(const TagRegistration &tag);
    bool Register(const CommandRegistration &command);
    bool RegisterDescription(std::int32_t id, const std::string &name);
    const TagPlugin *FindTag(std::int32_t id) const;
    const CommandPlugin *FindCommand(std::int32_t id) const;
    const std::string *FindDescription(std::int32_t id) const;
    std::int32_t DescriptionId(const std::string &name) const;  // 0 when unknown
    const std::vector<std::unique_ptr<TagPlugin>> &Tags() const { return tags_; }
    const std::vector<std::unique_ptr<CommandPlugin>> &Commands() const { return commands_; }
    const std::vector<std::string> &Order() const { return order_; }  // "command 1039960", in order of registration
    void Clear();
    // A test makes the next registration of a command or a tag fail.
    bool refuse_command = false, refuse_tag = false;

  private:
    std::vector<std::unique_ptr<TagPlugin>> tags_;
    std::vector<std::unique_ptr<CommandPlugin>> commands_;
    std::vector<std::pair<std::int32_t, std::string>> descriptions_;
    std::vector<std::string> order_;
};

}  // namespace host
