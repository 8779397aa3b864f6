// A running application with a made-up tag plug-in that writes down what the host asks of it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host/application.h"
#include "host/description/description.h"
#include "host/scene/document.h"
#include "host/scene/messages.h"
#include "host/scene/tag.h"
#include "host/value/custom.h"
#include "host/value/descid.h"
#include "host/value/text.h"
#include "scene_compare.h"

namespace host::testing {

constexpr std::int32_t kFakeTag = 1000001;
constexpr std::int32_t kSpeed = 2000, kCount = 2001, kTarget = 2002, kButton = 2003, kSwitch = 2004, kLabel = 2005;

// What the plug-in does and has seen; one per test.
struct FakeModule {
    std::vector<std::string> log;
    bool init_answer = true;
    bool enabled = true;
    std::function<void(Node *node)> on_init;
    std::function<void(Node *node, std::int32_t type, void *data)> on_message;
    std::function<std::int32_t(Tag *tag, Document *document, std::int32_t priority, std::int32_t flags)> on_execute;
    std::function<bool(Tag *tag, HostPriorityList *list)> on_add_to_execution;
    std::function<bool(const TableDescID &id, Data *out)> on_get_parameter;
    std::function<bool(const TableDescID &id, const Data &data)> on_set_parameter;
    int alive = 0;
    static FakeModule *&Current() {
        static FakeModule *current = nullptr;
        return current;
    }
};

struct FakeObject {
    HostAtom *node = nullptr;
    int member = 0;  // what a plug-in keeps for itself
};

inline FakeModule &Fake() { return *FakeModule::Current(); }

inline void AddEntry(Description *description, std::int32_t id, std::int32_t type, double least = 0, double most = 0) {
    Container settings = DefaultSettings(type);
    if (least < most) {
        settings.Set(kDescMin, Data(least));
        settings.Set(kDescMax, Data(most));
    }
    TableDescID full = MakeId(id);
    full.level[0].dtype = type;
    description->Set(full, settings, MakeId(803));
}

inline NodeCallbacks FakeCallbacks() {
    NodeCallbacks calls{};
    calls.allocate = [](void *) -> ModuleObject * {
        Fake().log.push_back("allocate");
        ++Fake().alive;
        return new FakeObject;
    };
    calls.destroy = [](ModuleObject *self) {
        Fake().log.push_back("destroy");
        --Fake().alive;
        delete static_cast<FakeObject *>(self);
    };
    calls.attach = [](ModuleObject *self, HostAtom *node) {
        Fake().log.push_back("attach");
        static_cast<FakeObject *>(self)->node = node;
    };
    calls.init = [](ModuleObject *, HostAtom *node) -> std::int32_t {
        Fake().log.push_back("init");
        if (Fake().on_init) Fake().on_init(static_cast<Node *>(node));
        return Fake().init_answer;
    };
    calls.free = [](ModuleObject *, HostAtom *) { Fake().log.push_back("free"); };
    calls.copy_to = [](ModuleObject *self, ModuleObject *destination, HostAtom *, HostAtom *, std::int32_t,
                       HostAliasTrans *) -> std::int32_t {
        Fake().log.push_back("copy");
        static_cast<FakeObject *>(destination)->member = static_cast<FakeObject *>(self)->member;
        return 1;
    };
    calls.message = [](ModuleObject *, HostAtom *node, std::int32_t type, void *data) -> std::int32_t {
        Fake().log.push_back("message " + std::to_string(type));
        if (Fake().on_message) Fake().on_message(static_cast<Node *>(node), type, data);
        return 1;
    };
    calls.get_description = [](ModuleObject *, HostAtom *, HostDescription *raw, std::int32_t *flags) -> std::int32_t {
        Description *description = static_cast<Description *>(raw);
        AddEntry(description, 803, 1);
        AddEntry(description, kSpeed, kDataReal, -2, 10);
        AddEntry(description, kCount, kDataWhole, 0, 100);
        AddEntry(description, kTarget, kDataLink);
        AddEntry(description, kButton, 8);
        AddEntry(description, kSwitch, 400006001);
        AddEntry(description, kLabel, kDataString);
        *flags |= 2;
        return 1;
    };
    calls.get_parameter = [](ModuleObject *, HostAtom *, const TableDescID *id, TableData *out,
                             std::int32_t *flags) -> std::int32_t {
        if (Fake().on_get_parameter && Fake().on_get_parameter(*id, static_cast<Data *>(out))) *flags |= 2;
        return 1;
    };
    calls.set_parameter = [](ModuleObject *, HostAtom *, const TableDescID *id, const TableData *data,
                             std::int32_t *flags) -> std::int32_t {
        if (Fake().on_set_parameter && Fake().on_set_parameter(*id, Data(*data))) *flags |= 2;
        return 1;
    };
    calls.get_enabling = [](ModuleObject *, HostAtom *, const TableDescID *id, const TableData *, std::int32_t,
                            const TableContainer *) -> std::int32_t {
        Fake().log.push_back("enabling " + std::to_string(id->level[0].id));
        return Fake().enabled;
    };
    return calls;
}

inline void RegisterFakeTag(Application *application) {
    TableString name{}, description{};
    Assign(&name, "Fake");
    TagRegistration registration{};
    registration.id = kFakeTag;
    registration.info = 9;  // visible, expression
    registration.name = &name;
    registration.description = &description;
    registration.node = FakeCallbacks();
    registration.execute = [](ModuleObject *, HostAtom *tag, HostAtom *document, HostAtom *, HostThread *,
                              std::int32_t priority, std::int32_t flags) -> std::int32_t {
        Fake().log.push_back("execute " + static_cast<Tag *>(tag)->Name());
        if (!Fake().on_execute) return 0;
        return Fake().on_execute(static_cast<Tag *>(tag), static_cast<Document *>(document), priority, flags);
    };
    registration.add_to_execution = [](ModuleObject *, HostAtom *tag, HostPriorityList *list) -> std::int32_t {
        return Fake().on_add_to_execution && Fake().on_add_to_execution(static_cast<Tag *>(tag), list);
    };
    application->registry.Register(registration);
    ReleaseText(&name);
    ReleaseText(&description);
}

class SceneTest : public ::testing::Test {
  protected:
    SceneTest() : application(ApplicationSettings{}) {
        FakeModule::Current() = &fake;
        RegisterFakeTag(&application);
        document = application.NewDocument();
    }
    ~SceneTest() override {
        application.KillDocument(document);
        EXPECT_EQ(fake.alive, 0) << "every plug-in object is destroyed with its tag";
    }

    // At the end of the scene.
    Object *AddCamera(const std::string &name, Object *parent = nullptr) {
        Object *camera = Object::Create(kTypeCamera).release();
        camera->SetName(name);
        Object *last = parent != nullptr ? static_cast<Object *>(parent->DownLast()) : document->FirstObject();
        while (parent == nullptr && last != nullptr && last->NextObject() != nullptr) last = last->NextObject();
        document->InsertObject(camera, parent, last);
        return camera;
    }
    // After the tags that are there.
    Tag *AddTag(Object *object, const std::string &name = "Fake") {
        Tag *last = object->FirstTag();
        while (last != nullptr && last->Next() != nullptr) last = static_cast<Tag *>(last->Next());
        Tag *tag = object->MakeTag(kFakeTag, last);
        tag->SetName(name);
        return tag;
    }

    FakeModule fake;
    Application application;
    Document *document;
};

inline double RealParameter(const Node *node, const TableDescID &id) {
    Data value;
    EXPECT_TRUE(node->GetParameter(id, &value));
    return value.Real();
}

}  // namespace host::testing
