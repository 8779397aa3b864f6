// Tags: nodes on an object, animated by the plug-in object of the module that registered their type.
#pragma once

#include <memory>

#include "host/scene/node.h"
#include "host/services/registry.h"

namespace host {

class Object;

constexpr std::int32_t kParamPriority = 1000998, kParamEnabled = 1000999;

class Tag : public Node {
  public:
    // A free tag: plug-in object made, attached, container given the type's id, Init called. null when the type is
    // not registered, when the plug-in gives no object, or when Init says no.
    static std::unique_ptr<Tag> Create(std::int32_t type);
    // Stands for a tag of a type that nobody registered: it keeps its data and does nothing.
    static std::unique_ptr<Tag> CreateMissing(std::int32_t type);
    ~Tag() override;

    std::int32_t Classification() const override { return kTypeTag; }
    bool IsInstanceOf(std::int32_t type) const override;
    Document *GetDocument() const override;
    Node *Main() const override;
    Object *GetObject() const;
    ModuleObject *Plugin() const override { return plugin_; }
    const TagPlugin &Registration() const { return registration_; }
    bool SendMessage(std::int32_t type, void *data) override;

    bool Enabled() const;
    // Whether the plug-in lets the user change a parameter that has this value; `settings` are those of its
    // description.
    bool IsControlEnabled(const TableDescID &id, const TableData &value, std::int32_t flags,
                          const TableContainer *settings);
    // Stage (1000 initial ... 5000 generators) plus own priority: the order of evaluation.
    std::int32_t ExecutionPriority() const;

  protected:
    // `own`: the registration where the tag has to keep it itself.
    explicit Tag(const TagPlugin &registration, std::unique_ptr<TagPlugin> own = nullptr);
    bool GetVirtualParameter(const TableDescID &id, host::Data *out) const override;
    Node *CreateSameKind() const override;
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    bool GetPluginParameter(const TableDescID &id, host::Data *out, std::int32_t flags) const override;
    bool SetPluginParameter(const TableDescID &id, const host::Data &data, std::int32_t flags) override;

  private:
    std::unique_ptr<TagPlugin> own_registration_;
    const TagPlugin &registration_;
    ModuleObject *plugin_ = nullptr;
};

}  // namespace host
