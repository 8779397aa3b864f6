#include "host/scene/tag.h"

#include <algorithm>

#include "host/application.h"
#include "host/scene/object.h"
#include "host/scene/parameters.h"
#include "host/value/custom.h"
#include "host/value/descid.h"
#include "host/watch/operation.h"

namespace host {
namespace {

constexpr std::int32_t kLowestPriority = -499, kHighestPriority = 499;
// Initial, animation, expression, dynamics, generators.
constexpr std::int32_t kStageDistance = 1000, kFirstStage = 0, kLastStage = 4;

}  // namespace

Tag::Tag(const TagPlugin &registration, std::unique_ptr<TagPlugin> own)
    : Node(registration.id), own_registration_(std::move(own)), registration_(registration) {
    Data() = Container(registration.id);
    SetName(registration.name);
}

std::unique_ptr<Tag> Tag::Create(std::int32_t type) {
    const Application *application = Application::Current();
    const TagPlugin *registration = application != nullptr ? application->registry.FindTag(type) : nullptr;
    if (registration == nullptr || registration->node.allocate == nullptr) return nullptr;
    std::unique_ptr<Tag> tag(new Tag(*registration));
    const NodeCallbacks &calls = registration->node;
    const Operation operation("Init");
    tag->plugin_ = calls.allocate(registration->registration);
    if (tag->plugin_ == nullptr) return nullptr;
    if (calls.attach != nullptr) calls.attach(tag->plugin_, tag.get());
    if (calls.init != nullptr && !calls.init(tag->plugin_, tag.get())) return nullptr;
    return tag;
}

std::unique_ptr<Tag> Tag::CreateMissing(std::int32_t type) {
    auto registration = std::make_unique<TagPlugin>();
    registration->id = type;
    const TagPlugin &known = *registration;
    return std::unique_ptr<Tag>(new Tag(known, std::move(registration)));
}

Tag::~Tag() {
    Detach();
    if (plugin_ == nullptr) return;
    const Operation operation("Free");
    ModuleObject *plugin = plugin_;
    if (registration_.node.free != nullptr) registration_.node.free(plugin, this);
    plugin_ = nullptr;
    if (registration_.node.destroy != nullptr) registration_.node.destroy(plugin);
}

Node *Tag::CreateSameKind() const { return (own_registration_ ? CreateMissing(Type()) : Create(Type())).release(); }

bool Tag::IsInstanceOf(std::int32_t type) const { return Node::IsInstanceOf(type); }

Node *Tag::Main() const { return List() != nullptr ? List()->owner : nullptr; }

Object *Tag::GetObject() const { return static_cast<Object *>(Main()); }

Document *Tag::GetDocument() const { return Main() != nullptr ? Main()->GetDocument() : nullptr; }

bool Tag::SendMessage(std::int32_t type, void *data) {
    const bool agreed = Node::SendMessage(type, data);
    if (plugin_ == nullptr || registration_.node.message == nullptr) return agreed;
    const Operation operation("Message");
    return registration_.node.message(plugin_, this, type, data) != 0 && agreed;
}

bool Tag::Enabled() const { return Data().Whole(kParamEnabled, 1) != 0; }

std::int32_t Tag::ExecutionPriority() const {
    std::int32_t stage = Priority::kModeExpression, priority = 0;
    const host::Data *stored = Data().Find(kParamPriority);
    if (stored != nullptr && stored->type == kDataPriority && stored->value.custom != nullptr) {
        const Priority *value = static_cast<const Priority *>(stored->value.custom);
        stage = std::clamp(value->Get(Priority::kMode), kFirstStage, kLastStage);
        priority = std::clamp(value->Get(Priority::kPriority), kLowestPriority, kHighestPriority);
    }
    return (stage + 1) * kStageDistance + priority;
}

// A tag has both from the beginning, before anything is stored: modules change the priority inside Init.
bool Tag::GetVirtualParameter(const TableDescID &id, host::Data *out) const {
    if (id.depth == 1 && LevelId(id, 0) == kParamPriority && !Data().Has(kParamPriority)) {
        HostCustomData *priority = CreateCustomData(kDataPriority);
        if (priority != nullptr) *out = host::Data::Custom(priority);
        return priority != nullptr;
    }
    if (id.depth == 1 && LevelId(id, 0) == kParamEnabled && !Data().Has(kParamEnabled)) {
        *out = host::Data(1);
        return true;
    }
    return Node::GetVirtualParameter(id, out);
}

bool Tag::GetPluginParameter(const TableDescID &id, host::Data *out, std::int32_t flags) const {
    if (plugin_ == nullptr || registration_.node.get_parameter == nullptr) return false;
    const Operation operation("GetDParameter");
    registration_.node.get_parameter(plugin_, const_cast<Tag *>(this), &id, out, &flags);
    return (flags & kGetHandled) != 0;
}

bool Tag::SetPluginParameter(const TableDescID &id, const host::Data &data, std::int32_t flags) {
    if (plugin_ == nullptr || registration_.node.set_parameter == nullptr) return false;
    const Operation operation("SetDParameter");
    registration_.node.set_parameter(plugin_, this, &id, &data, &flags);
    return (flags & kSetHandled) != 0;
}

bool Tag::IsControlEnabled(const TableDescID &id, const TableData &value, std::int32_t flags,
                           const TableContainer *settings) {
    if (plugin_ == nullptr || registration_.node.get_enabling == nullptr) return true;
    const Operation operation("GetDEnabling");
    return registration_.node.get_enabling(plugin_, this, &id, &value, flags, settings) != 0;
}

// What a plug-in keeps in its own members is copied by itself alone.
bool Tag::CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    if (plugin_ == nullptr || registration_.node.copy_to == nullptr) return true;
    const Operation operation("CopyTo");
    Tag *tag = static_cast<Tag *>(copy);
    return registration_.node.copy_to(plugin_, tag->plugin_, const_cast<Tag *>(this), tag, flags, translation) != 0;
}

}  // namespace host
