// The embedded host: everything that a running application would be. One at a time. It belongs to the thread that made
// it; documents that no other thread uses may be made, evaluated and freed on any.
#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "host/scene/document.h"
#include "host/services/registry.h"
#include "host/ui/scripted_user.h"
#include "platform/table.h"

namespace host {

struct ApplicationSettings {
    std::filesystem::path application_folder;                              // where the application would lie
    std::filesystem::path user_folder;                                     // writable: plug-ins' user folders
    std::filesystem::path preferences_file;                                // world settings; empty: they are not kept
    std::int32_t version = 14042, version_type = 2, operating_system = 0;  // 0: this system's
};

class Application {
  public:
    explicit Application(ApplicationSettings settings);
    ~Application();                 // kills the documents; modules must have been unloaded before
    static Application *Current();  // null when none is running
    static const HostTable *Table();
    bool IsOnMainThread() const { return std::this_thread::get_id() == main_thread_; }
    // For whoever serves several threads, one after the other: which one is the main thread from now on; {}: none.
    void SetMainThread(std::thread::id thread) { main_thread_ = thread; }

    ApplicationSettings settings;
    Registry registry;
    Console console;
    Dialogs dialogs;
    StatusBar status;
    InputState input;
    Requests requests;

    // World settings by plug-in id, live; kept in the preferences file at the end (SaveWorldSettings).
    Container *WorldPluginData(std::int32_t id);  // null until something was set
    bool SetWorldPluginData(std::int32_t id, const Container &data, bool add);
    bool LoadWorldSettings();
    bool SaveWorldSettings() const;

    // ---- Documents
    Document *NewDocument();                  // inserted and active
    void InsertDocument(Document *document);  // takes it over
    void SetActiveDocument(Document *document);
    void KillDocument(Document *document);
    Document *ActiveDocument() const { return active_; }
    const std::vector<std::unique_ptr<Document>> &Documents() const { return documents_; }

    // Sets the time and evaluates, like the time slider.
    void SetDocumentTime(Document *document, const Time &time);
    void CallCommand(std::int32_t id);
    // Evaluates the active document once where events are queued: animation too when its time changed or an event
    // asked for it.
    void QueueEvent(std::int32_t flags);
    void HandleEvents();
    // What was recorded for whoever looks, and what is queued; the active document is none from now on.
    void ForgetTheUser();

  private:
    std::vector<std::unique_ptr<Document>> documents_;
    Document *active_ = nullptr;
    std::vector<std::pair<std::int32_t, std::unique_ptr<Container>>> world_;
    std::int32_t queued_flags_ = -1;  // -1: no event waits
    std::atomic<std::thread::id> main_thread_ = std::this_thread::get_id();
    std::mutex world_lock_, event_lock_;
};

}  // namespace host
