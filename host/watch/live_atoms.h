// Which handles to nodes still stand for one.
#pragma once

struct HostAtom;

namespace host {

// Told by every node when it comes to be and when it goes.
void EnterAtom(const HostAtom *atom);
void LeaveAtom(const HostAtom *atom);
// false for an address at which there is no node, or none any more. null is none.
bool IsLiveAtom(const HostAtom *atom);

// A node that its owner freed, which may live on in an undo step.
void GiveUpAtom(const HostAtom *atom);
bool IsGivenUpAtom(const HostAtom *atom);

}  // namespace host
