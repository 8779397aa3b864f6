// Which handles to nodes still stand for one, on whichever threads they are made and freed.
#pragma once

#include <atomic>

struct HostAtom;

namespace host {

// From the first call on nodes are followed: before the first one is made, and only where somebody judges, as it costs.
void FollowAtoms();
inline std::atomic<bool> atoms_are_followed{false};

void RememberAtom(const HostAtom *atom);
void ForgetAtom(const HostAtom *atom);
// Told by every node when it comes to be and when it goes.
inline void EnterAtom(const HostAtom *atom) {
    if (atoms_are_followed.load(std::memory_order_relaxed)) RememberAtom(atom);
}
inline void LeaveAtom(const HostAtom *atom) {
    if (atoms_are_followed.load(std::memory_order_relaxed)) ForgetAtom(atom);
}
// false for an address at which there is no node that is followed, or none any more. null is none.
bool IsLiveAtom(const HostAtom *atom);

// A node that its owner freed, which may live on in an undo step.
void GiveUpAtom(const HostAtom *atom);
bool IsGivenUpAtom(const HostAtom *atom);

}  // namespace host
