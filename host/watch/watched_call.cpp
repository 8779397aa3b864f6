#include "host/watch/watched_call.h"

#include <cctype>

#include "host/application.h"
#include "host/scene/document.h"
#include "host/watch/judge.h"
#include "host/watch/live_atoms.h"
#include "host/watch/operation.h"

namespace host {

namespace {

struct AtomKind {
    char letter;
    std::int32_t classification;  // 0: any
    const char *name;
};
constexpr AtomKind kKinds[] = {{'n', 0, "a node"},
                               {'o', kTypeObject, "an object"},
                               {'t', kTypeTag, "a tag"},
                               {'r', kTypeTrack, "a track"},
                               {'c', kTypeCurve, "a curve"},
                               {'k', kTypeKey, "a key"},
                               {'d', kTypeDocument, "a document"}};

const AtomKind *KindOf(char letter) {
    for (const AtomKind &kind : kKinds)
        if (kind.letter == std::tolower(static_cast<unsigned char>(letter))) return &kind;
    return nullptr;
}

}  // namespace

void CallCheck::Complain(const char *found, const char *expected) {
    host::Complain(entry_.FullName(), found, expected);
    sound_ = false;
}

void CallCheck::Argument(const HostAtom *atom) {
    const char letter = entry_.arguments[place_++];
    const AtomKind *kind = KindOf(letter);
    if (!sound_ || kind == nullptr) return;
    has_atoms_ = true;
    if (atom == nullptr) {
        if (std::islower(static_cast<unsigned char>(letter)) != 0) Complain("NULL", kind->name);
        return;
    }
    const Node *node = IsLiveAtom(atom) ? static_cast<const Node *>(atom) : nullptr;
    // An undo step puts back into the scene what was given up.
    if (node == nullptr || (IsGivenUpAtom(atom) && node->GetDocument() == nullptr)) {
        Complain("a freed node", kind->name);
        return;
    }
    if (kind->classification != 0 && node->Classification() != kind->classification) {
        Complain("a node of another kind", kind->name);
        return;
    }
    const HostAtom *document = node->GetDocument();
    in_scene_ = in_scene_ || document != nullptr;
    if (document == nullptr || (entry_.rules & kAcross) != 0) return;
    if (document_ != nullptr && document_ != document)
        Complain("nodes of two documents", "those of one");
    else
        document_ = document;
}

void CallCheck::Argument(const void *pointer) {
    if (entry_.arguments[place_++] == 'p' && pointer == nullptr && sound_) Complain("NULL", "something there");
}

bool CallCheck::IsSound() {
    if (sound_ && (entry_.rules & kEdits) != 0 && Operation::Evaluating() && (in_scene_ || !has_atoms_))
        Complain("it while a frame is evaluated", "it outside of that");
    const Application *application = Application::Current();
    if (sound_ && (entry_.rules & kMainOnly) != 0 && application != nullptr && !application->IsOnMainThread())
        Complain("it on another thread", "it on the main thread");
    return sound_;
}

}  // namespace host
