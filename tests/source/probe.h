// The tag's class with an ear on its own operations, registered with the host in place of the plain one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/animation/passes.h"
#include "host/application.h"
#include "host/scene/object.h"
#include "host/scene/tag.h"
#include "tag/cameraloader.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"
#include "tests/source/glue.h"

class ProbeTag : public TremoluxCamClass {
  public:
    struct Call {
        std::string operation;
        Real frame_before;  // what stood under the last frame's key
        LONG catching_up;
        Real shake_clock;
    };
    static NodeData *Alloc() { return last = gNew ProbeTag; }
    static ProbeTag *last;
    std::vector<Call> calls;

    void EvaluateFrame(BaseContainer *data, BaseObject *camera) override {
        Note("evaluate", data);
        TremoluxCamClass::EvaluateFrame(data, camera);
    }
    void ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc) override {
        Note("reset", data);
        TremoluxCamClass::ResetSimulation(data, camera, doc);
    }
    void SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera) override {
        Note("run up", data);
        TremoluxCamClass::SimulateToFrame(frame, data, camera);
    }
    void ParseCustomTrigger(BaseContainer *data) override {
        if (is_noting_triggers) Note("parse", data);
        TremoluxCamClass::ParseCustomTrigger(data);
    }
    void ParseCustomTriggerTwin(BaseContainer *data) override {
        if (is_noting_triggers) Note("parse twin", data);
        TremoluxCamClass::ParseCustomTriggerTwin(data);
    }
    Bool is_noting_triggers = FALSE;
    void ImportPresets() override {
        calls.push_back({"import", 0, 0, 0});
        TremoluxCamClass::ImportPresets();
    }
    std::vector<std::string> Operations() const {
        std::vector<std::string> names;
        for (const Call &call : calls) names.push_back(call.operation);
        return names;
    }

  private:
    void Note(const char *operation, const BaseContainer *data) {
        calls.push_back({operation, data ? data->GetReal(kLastFrame) : 0, data ? data->GetLong(kCatchingUp) : 0,
                         data ? data->GetReal(kShakeClock) : 0});
    }
};

inline ProbeTag *ProbeTag::last = nullptr;

// A document of 30 frames a second with an input camera and a camera that carries the tag, set up already.
class WithProbe : public WithGlue {
  protected:
    explicit WithProbe(NodeData *(*alloc)() = ProbeTag::Alloc) : alloc_(alloc) {}
    void SetUp() override {
        WithGlue::SetUp();
        ASSERT_TRUE(RegisterTagPlugin(kTremoluxCamId, "TremoluxCam", TAG_VISIBLE | TAG_EXPRESSION, alloc_,
                                      "TremoluxCam", NULL, 0));
        document_ = application().NewDocument();
        document_->SetFps(30);
        document_->SetRange(0, 300);
        input_ = host::Object::Create(host::kTypeCamera).release();
        document_->InsertObject(input_);
        camera_ = host::Object::Create(host::kTypeCamera).release();
        document_->InsertObject(camera_);
        tag_ = camera_->MakeTag(kTremoluxCamId);
        ASSERT_NE(tag_, nullptr);
        probe_ = ProbeTag::last;
        Show(0);
        State().Set(6001, host::Data::LinkTo(input_));
        probe_->calls.clear();
    }
    void TearDown() override {
        if (document_) application().KillDocument(document_);
        application().registry.Clear();
    }

    void Show(std::int64_t frame) {
        document_->SetFrame(frame);
        Evaluate();
    }
    void Evaluate() { host::ExecutePasses(document_, true, true, true); }
    host::Container &State() { return tag_->Data(); }
    // What the module sees of the same things.
    BaseContainer *Data() { return reinterpret_cast<BaseContainer *>(static_cast<TableContainer *>(&tag_->Data())); }
    BaseObject *Camera() { return reinterpret_cast<BaseObject *>(static_cast<HostAtom *>(camera_)); }
    BaseDocument *Doc() { return reinterpret_cast<BaseDocument *>(static_cast<HostAtom *>(document_)); }

    host::Document *document_ = nullptr;
    host::Object *input_ = nullptr, *camera_ = nullptr;
    host::Tag *tag_ = nullptr;
    ProbeTag *probe_ = nullptr;

  private:
    NodeData *(*alloc_)();
};
