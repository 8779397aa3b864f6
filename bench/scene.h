// The scene that is measured and worked on: a moving input camera, and a camera with the module's tag on it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

#include "bench/layers.h"
#include "host/application.h"
#include "host/scene/document.h"
#include "host/scene/tag.h"
#include "host/services/module.h"

namespace bench {

// Hand-held at 30 frames a second; every layer is on. Ends the program with one line when the module cannot be loaded
// or gives no tag: there is nothing to measure then.
class Scene {
  public:
    // The module calls the host through `table`.
    explicit Scene(const HostTable *table = host::Application::Table());
    ~Scene();
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;

    // Sets the document's time and evaluates tracks and tags, like the time slider.
    void Evaluate(std::int64_t frame);
    // The document then reaches from frame 0 to `frame`.
    void SetLastFrame(std::int64_t frame);
    // A button of the tag's panel, by its id. Nothing of it stays in the undo list.
    void Press(std::int32_t button);
    host::Vector CameraPosition() const;
    host::Document &Document() const { return *document_; }
    host::Object &Camera() const { return *camera_; }
    host::Tag &Tag() const { return *tag_; }
    const std::filesystem::path &UserFolder() const { return application_->settings.user_folder; }
    // Everything but that layer is off.
    void KeepLayer(Layer layer);
    // The scene as it was at first, in a new document.
    void NewShot();
    // Unloads the module and loads it again; the scene's document goes, and MakeTag begins a new one.
    void RestartModule();
    void MakeTag();

  private:
    void LoadModule();
    const HostTable *table_;
    std::filesystem::path folder_;
    std::unique_ptr<host::Application> application_;
    std::unique_ptr<host::LoadedModule> module_;
    host::Document *document_ = nullptr;
    host::Object *camera_ = nullptr;
    host::Tag *tag_ = nullptr;
};

}  // namespace bench
