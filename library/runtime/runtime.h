// The module in the embedded host, linked in: one for all shots of a process.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>

#include "host/application.h"
#include "host/services/module.h"
#include "library/parameters/panel.h"
#include "library/parameters/parameter.h"
#include "library/presets/catalog.h"
#include "library/presets/facts.h"

namespace tremolux {

struct PresetAbout {
    PresetFacts facts;
    bool is_pair;
};

class Runtime {
  public:
    // Started by the first call; throws a Failure when the module does not start.
    static Runtime &Get();
    ~Runtime();
    Runtime(const Runtime &) = delete;
    Runtime &operator=(const Runtime &) = delete;

    // What the host does for its user is for one thread at a time, which is its main thread meanwhile; `document` is the one
    // that the user works on. Not to be nested.
    class Turn {
      public:
        explicit Turn(host::Document *document = nullptr);
        ~Turn();
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

      private:
        Runtime &runtime_;
        std::lock_guard<std::mutex> hold_;
    };

    const std::vector<Parameter> &Parameters() const { return parameters_; }  // as a fresh tag describes them
    const std::vector<PanelPlace> &Places() const { return places_; }          // of the parameters, one each
    const std::vector<PanelEntry> &Panel() const { return panel_; }
    // The built-in presets, with what is known of each at the same place.
    const std::vector<CatalogEntry> &Presets() const { return presets_; }
    const std::vector<PresetAbout> &AboutPresets() const { return about_; }
    // Where the module takes itself to lie.
    std::filesystem::path ModuleFile() const;

  private:
    Runtime();
    std::mutex lock_;
    std::unique_ptr<host::Application> application_;
    std::unique_ptr<host::LoadedModule> module_;
    std::vector<Parameter> parameters_;
    std::vector<PanelPlace> places_;
    std::vector<PanelEntry> panel_;
    std::vector<CatalogEntry> presets_;
    std::vector<PresetAbout> about_;
};

}  // namespace tremolux
