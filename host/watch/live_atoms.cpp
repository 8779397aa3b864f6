#include "host/watch/live_atoms.h"

#include <tsl/robin_map.h>

#include <cstdint>
#include <mutex>

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

struct FollowedAtoms {
    std::mutex lock;
    AtomMap map;
};

// They live as long as the process: nodes may outlive what is static elsewhere.
FollowedAtoms &Atoms() {
    static auto *atoms = new FollowedAtoms;
    return *atoms;
}

// What `use` answers of the map.
template <typename Use>
auto WithAtoms(Use &&use) {
    FollowedAtoms &atoms = Atoms();
    const std::lock_guard<std::mutex> hold(atoms.lock);
    return use(atoms.map);
}

}  // namespace

void FollowAtoms() { atoms_are_followed = true; }

void RememberAtom(const HostAtom *atom) {
    WithAtoms([&](AtomMap &atoms) { atoms.insert_or_assign(atom, false); });
}

void ForgetAtom(const HostAtom *atom) {
    WithAtoms([&](AtomMap &atoms) { atoms.erase(atom); });
}

bool IsLiveAtom(const HostAtom *atom) {
    return WithAtoms([&](AtomMap &atoms) { return atoms.count(atom) > 0; });
}

void GiveUpAtom(const HostAtom *atom) {
    WithAtoms([&](AtomMap &atoms) {
        if (atoms.count(atom) > 0) atoms[atom] = true;
    });
}

bool IsGivenUpAtom(const HostAtom *atom) {
    return WithAtoms([&](AtomMap &atoms) {
        const auto found = atoms.find(atom);
        return found != atoms.end() && found->second;
    });
}

}  // namespace host
