#include "host/application.h"

#include <algorithm>

#include "host/animation/passes.h"
#include "host/files/hyperfile.h"
#include "host/services/platform.h"
#include "host/watch/operation.h"

namespace host {

namespace {

Application *current = nullptr;

// The preferences are a hyper file of this ident: a container of containers, by plug-in id.
constexpr std::int32_t kPreferencesIdent = 0x70726566;  // "pref"

constexpr std::int32_t kCommandEnabled = 0x40000000;
constexpr std::int32_t kEventAnimate = 2, kEventNoExpressions = 4;

// A camera with the place and the lens of the view, first in the scene and selected: one undo step.
void MakeCamera(Document *document) {
    std::unique_ptr<Object> camera = Object::Create(kTypeCamera);
    View *view = document->ActiveView();
    if (view != nullptr) {
        const Object *from = view->SceneCamera(document);
        if (from == nullptr) from = view->EditorCamera();
        camera->SetGlobalMatrix(from->GlobalMatrix());
        for (std::int32_t lens : {kCameraFocalLength, kCameraAperture})
            camera->Data().SetReal(lens, from->Data().Real(lens));
    }
    Object *made = camera.release();
    document->Undo().Start();
    document->InsertObject(made);
    document->Undo().Add(kUndoNew, made);
    document->SetActiveObject(made);
    document->Undo().End();
}

}  // namespace

Application::Application(ApplicationSettings given) : settings(std::move(given)) {
    if (settings.operating_system == 0) settings.operating_system = OperatingSystemCode();
    current = this;
    LoadWorldSettings();
}

Application::~Application() {
    documents_.clear();
    registry.Clear();
    SaveWorldSettings();
    current = nullptr;
}

Application *Application::Current() { return current; }

Container *Application::WorldPluginData(std::int32_t id) {
    const std::lock_guard<std::mutex> hold(world_lock_);
    for (auto &[number, data] : world_)
        if (number == id) return data.get();
    return nullptr;
}

bool Application::SetWorldPluginData(std::int32_t id, const Container &data, bool add) {
    Container *known = WorldPluginData(id);
    const std::lock_guard<std::mutex> hold(world_lock_);
    if (known == nullptr) {
        world_.emplace_back(id, std::make_unique<Container>(data));
    } else if (add) {
        known->Merge(data);
    } else {
        *known = data;
    }
    return true;
}

bool Application::LoadWorldSettings() {
    if (settings.preferences_file.empty()) return false;
    HyperFile file;
    Container all;
    if (!file.Open(kPreferencesIdent, settings.preferences_file, FileMode::kRead) || !file.ReadContainer(&all))
        return false;
    for (std::int32_t i = 0; i < all.Count(); ++i)
        if (const Container *data = all.DataAt(i)->GetContainer()) SetWorldPluginData(all.IdAt(i), *data, false);
    return true;
}

bool Application::SaveWorldSettings() const {
    if (settings.preferences_file.empty() || world_.empty()) return false;
    Container all;
    for (const auto &[id, data] : world_) all.Set(id, Data(*data));
    HyperFile file;
    return file.Open(kPreferencesIdent, settings.preferences_file, FileMode::kWrite) && file.WriteContainer(all) &&
           file.Close();
}

Document *Application::NewDocument() {
    auto *document = new Document;
    InsertDocument(document);
    SetActiveDocument(document);
    return document;
}

void Application::InsertDocument(Document *document) {
    if (document == nullptr) return;
    for (const auto &known : documents_)
        if (known.get() == document) return;
    documents_.emplace_back(document);
    if (active_ == nullptr) active_ = document;
}

void Application::SetActiveDocument(Document *document) {
    InsertDocument(document);
    active_ = document;
}

void Application::KillDocument(Document *document) {
    const auto place =
        std::find_if(documents_.begin(), documents_.end(), [&](const auto &known) { return known.get() == document; });
    if (place == documents_.end()) return;
    documents_.erase(place);
    if (active_ == document) active_ = documents_.empty() ? nullptr : documents_.front().get();
}

void Application::SetDocumentTime(Document *document, const Time &time) {
    if (document == nullptr) return;
    document->SetTime(time);
    ExecutePasses(document, true, true, true);
}

void Application::CallCommand(std::int32_t id) {
    requests.called_commands.push_back(id);
    if (const CommandPlugin *command = registry.FindCommand(id)) {
        const Operation operation("Command");
        if (command->get_state != nullptr && (command->get_state(command->self, active_) & kCommandEnabled) == 0)
            return;
        Document *document = active_;
        const int depth = document == nullptr ? 0 : document->Undo().Depth();
        if (command->execute != nullptr) command->execute(command->self, document);
        // A step that the command left open would swallow the user's next ones.
        if (document != nullptr && document == active_)
            while (document->Undo().Depth() > depth) document->Undo().End();
    } else if (id == kTypeCamera && active_ != nullptr) {
        MakeCamera(active_);
    }
}

void Application::QueueEvent(std::int32_t flags) {
    const std::lock_guard<std::mutex> hold(event_lock_);
    ++requests.events;
    queued_flags_ = queued_flags_ < 0 ? flags : queued_flags_ | flags;
}

void Application::HandleEvents() {
    std::int32_t flags = -1;
    {
        const std::lock_guard<std::mutex> hold(event_lock_);
        std::swap(flags, queued_flags_);
    }
    if (flags < 0) return;
    if (active_ == nullptr) return;
    const bool moved = !SameTime(active_->GetTime(), active_->AnimatedTime());
    ExecutePasses(active_, moved || (flags & kEventAnimate) != 0, (flags & kEventNoExpressions) == 0, true);
}

void Application::ForgetTheUser() {
    active_ = nullptr;
    console.Clear();
    dialogs.Clear();
    status.history.clear();
    const std::lock_guard<std::mutex> hold(event_lock_);
    requests = {};
    queued_flags_ = -1;
}

}  // namespace host
