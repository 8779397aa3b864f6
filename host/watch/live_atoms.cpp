#include "host/watch/live_atoms.h"

#include <tsl/robin_map.h>

#include <cstdint>

namespace host {

namespace {

struct ScatteredAddress {
    std::size_t operator()(const HostAtom *atom) const {
        return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(atom) * std::uint64_t{0x9E3779B97F4A7C15u} >>
                                        20);
    }
};

// Whether the module gave it up.
using AtomMap = tsl::robin_map<const HostAtom *, bool, ScatteredAddress>;

// Lives as long as the process: nodes may outlive what is static elsewhere.
AtomMap &Atoms() {
    static auto *atoms = new AtomMap;
    return *atoms;
}

}  // namespace

void FollowAtoms() { atoms_are_followed = true; }

void RememberAtom(const HostAtom *atom) { Atoms().insert_or_assign(atom, false); }

void ForgetAtom(const HostAtom *atom) { Atoms().erase(atom); }

bool IsLiveAtom(const HostAtom *atom) { return Atoms().count(atom) > 0; }

void GiveUpAtom(const HostAtom *atom) {
    if (IsLiveAtom(atom)) Atoms()[atom] = true;
}

bool IsGivenUpAtom(const HostAtom *atom) {
    const auto found = Atoms().find(atom);
    return found != Atoms().end() && found->second;
}

}  // namespace host
