// One entry of the function table, and the judge in front of it.
#pragma once

#include <cstdint>
#include <type_traits>

#include "host/watch/call_faults.h"
#include "host/watch/live_atoms.h"
#include "platform/table.h"

namespace host {

enum CallRule : std::int32_t {
    kFreely = 0,
    kMayFail = 1,   // by the interface's word: without memory, by a file, a user, an absent thing
    kEdits = 2,     // the scene, or asks the user: not while a frame is evaluated, except on what is in no scene yet
    kAcross = 4,    // its nodes may be of different documents
    kGivesUp = 8,   // its node is the caller's no more
    kMainOnly = 16  // asks the user, keeps undo steps or the list of documents: on the main thread
};

// `arguments` has a letter for each argument:
//   n o t r c k d   a node, object, tag, track, curve, key, document
//   N O T R C K D   the same, or NULL
//   p               any other pointer that must be there
//   -               whatever it is
struct WatchedEntry {
    const char *name, *arguments;
    std::int32_t rules;
};

// The arguments of one call, one after the other.
class CallCheck {
  public:
    explicit CallCheck(const WatchedEntry &entry) : entry_(entry) {}
    void Argument(const HostAtom *atom);
    void Argument(const void *pointer);
    template <typename Plain>
    std::enable_if_t<!std::is_pointer_v<Plain>> Argument(const Plain &) {
        ++place_;
    }
    // After the last one; false: the call must not happen.
    bool IsSound();

  private:
    void Complain(const char *found, const char *expected);
    const WatchedEntry &entry_;
    int place_ = 0;
    bool sound_ = true, in_scene_ = false, has_atoms_ = false;
    const HostAtom *document_ = nullptr;
};

template <typename Table>
const Table &Unwatched();

// `Here::Entry()` describes the entry that `member` points to.
template <typename Here, auto member, typename = decltype(member)>
struct WatchedCall;

template <typename Here, auto member, typename Table, typename Answer, typename... Arguments>
struct WatchedCall<Here, member, Answer (*Table::*)(Arguments...)> {
    static Answer Call(Arguments... arguments) {
        static constexpr WatchedEntry entry = Here::Entry();
        CallCheck check(entry);
        (check.Argument(arguments), ...);
        if (!check.IsSound()) return Answer();
        if constexpr (!std::is_void_v<Answer>)
            if ((entry.rules & kMayFail) != 0 && CallFails(entry.name)) return Answer();
        if constexpr ((entry.rules & kGivesUp) != 0) (GiveUpAtom(arguments), ...);
        return (Unwatched<Table>().*member)(arguments...);
    }
};

}  // namespace host
