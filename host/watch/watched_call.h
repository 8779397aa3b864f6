// One entry of the function table, and the judge in front of it.
#pragma once

#include <cstdint>
#include <string>
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
    const char *part, *name, *arguments;
    std::int32_t rules;

    std::string FullName() const { return std::string(part) + "." + name; }
};

// The letters are as many as the arguments, a node's stand where a node is, and `p` where any other pointer is.
template <typename... Arguments>
constexpr bool LettersFit(const char *letters) {
    constexpr bool is_node[] = {false, std::is_convertible_v<Arguments, const HostAtom *>...};
    constexpr bool is_pointer[] = {false, std::is_pointer_v<Arguments>...};
    for (std::size_t i = 1; i <= sizeof...(Arguments); ++i, ++letters) {
        if (*letters == '\0') return false;
        if (*letters == 'p' ? is_node[i] || !is_pointer[i] : (*letters != '-') != is_node[i]) return false;
    }
    return *letters == '\0';
}

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

template <const WatchedEntry *row, auto body, typename = decltype(body)>
struct WatchedCall;

template <const WatchedEntry *row, auto body, typename Answer, typename... Arguments>
struct WatchedCall<row, body, Answer (*)(Arguments...)> {
    static_assert(LettersFit<Arguments...>(row->arguments), "an entry's letters fit its arguments");

    static Answer Call(Arguments... arguments) {
        CallCheck check(*row);
        (check.Argument(arguments), ...);
        if (!check.IsSound()) return Answer();
        if constexpr (!std::is_void_v<Answer>)
            if ((row->rules & kMayFail) != 0 && CallFails(row->part, row->name)) return Answer();
        if constexpr ((row->rules & kGivesUp) != 0) (GiveUpAtom(arguments), ...);
        return body(arguments...);
    }
};

}  // namespace host
