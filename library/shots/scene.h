// A saved document, open in the embedded host.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "library/shots/embedded_host.h"

namespace tremolux {

class OpenScene {
  public:
    // Throws a Failure when the file is no scene.
    OpenScene(EmbeddedHost *host, const std::filesystem::path &file);
    ~OpenScene();
    OpenScene(const OpenScene &) = delete;
    OpenScene &operator=(const OpenScene &) = delete;

    host::Document *Document() const { return document_; }
    // The camera of that name; throws a Failure without one.
    host::Object *Camera(const std::string &name) const;
    // The module's tag on that camera, or the only one in the scene for an empty name. Throws a Failure.
    host::Tag *CameraTag(const std::string &camera) const;
    // A complete new file, or none. Throws a Failure.
    void Save(const std::filesystem::path &file) const;

  private:
    std::filesystem::path file_;
    host::Document *document_;  // the running host's
};

void SaveScene(host::Document *document, const std::filesystem::path &file);

}  // namespace tremolux
