#include "library/shots/scene.h"

#include <vector>

#include "generated/module_ids.h"
#include "host/files/scenefile.h"
#include "host/scene/object.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

void CollectTags(host::Object *object, std::vector<host::Tag *> *tags) {
    for (; object != nullptr; object = static_cast<host::Object *>(object->Next())) {
        if (host::Tag *tag = object->FindTag(ids::kTremoluxCamId)) tags->push_back(tag);
        CollectTags(static_cast<host::Object *>(object->Down()), tags);
    }
}

}  // namespace

OpenScene::OpenScene(EmbeddedHost *host, const std::filesystem::path &file) : file_(file) {
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(file, &error);
    if (!document) throw Failure(kExitInput, error);
    document_ = document.get();
    host->Application().InsertDocument(document.release());
    host->Application().SetActiveDocument(document_);
}

OpenScene::~OpenScene() { host::Application::Current()->KillDocument(document_); }

host::Object *OpenScene::Camera(const std::string &name) const {
    host::Object *object = document_->FindObject(name);
    if (object == nullptr || object->Type() != host::kTypeCamera)
        throw Failure(kExitInput, host::PathText(file_) + ": found no camera " + Quoted(name) + ", expected one");
    return object;
}

host::Tag *OpenScene::CameraTag(const std::string &camera) const {
    std::vector<host::Tag *> tags;
    if (camera.empty())
        CollectTags(document_->FirstObject(), &tags);
    else if (host::Tag *tag = Camera(camera)->FindTag(ids::kTremoluxCamId))
        tags.push_back(tag);
    if (tags.size() == 1) return tags.front();
    throw Failure(kExitInput, host::PathText(file_) + ": found " + std::to_string(tags.size()) +
                                  " TremoluxCam tags, expected one, or --camera with the name of the camera it is on");
}

void OpenScene::Save(const std::filesystem::path &file) const { SaveScene(document_, file); }

void SaveScene(host::Document *document, const std::filesystem::path &file) {
    std::string error;
    if (!host::SaveDocument(document, file, &error)) throw Failure(kExitOutput, error);
}

}  // namespace tremolux
