// The parameter container: an ordered list of (id, value). Ids may be any number. A copy is its own: what is written to
// one is never seen in the other. Copies share their entries until one of them is written to, on whichever threads they
// are.
#pragma once

#include <tsl/robin_map.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/value/data.h"
#include "platform/table.h"

// The entries behind one or more containers. An entry keeps its address until it is removed, or until a container that
// shares its entries with another is written to: modules hold pointers to values.
struct HostContainer {
    struct Entry {
        std::int32_t id;
        host::Data data;
    };
    // Neighbouring ids come in runs, which must not fall on neighbouring places.
    struct ScatteredId {
        std::size_t operator()(std::int32_t id) const {
            return static_cast<std::size_t>(static_cast<std::uint32_t>(id) * std::uint64_t{0x9E3779B97F4A7C15u} >> 32);
        }
    };
    std::vector<std::unique_ptr<Entry>> entries;
    tsl::robin_map<std::int32_t, Entry *, ScatteredId>
        first_with_id;                    // finding an id is what every frame does a hundred times
    std::atomic<std::int32_t> owners{1};  // containers that share it
    bool exposed = false;                 // somebody may write through a pointer to a value, so it cannot be shared
    bool has_links = false;               // here or deeper; links are re-targeted when a document is copied
};

namespace host {

// Same bytes as a TableContainer.
class Container : public TableContainer {
  public:
    Container();
    explicit Container(std::int32_t own_id);
    Container(const Container &other);
    Container(Container &&other) noexcept;
    Container &operator=(const Container &other);
    Container &operator=(Container &&other) noexcept;
    ~Container();

    void CopyFrom(const TableContainer &other, HostAliasTrans *translation);
    void Flush();
    std::int32_t Count() const;
    bool Has(std::int32_t entry) const { return Find(entry) != nullptr; }
    // First with that id; or null.
    const Data *Find(std::int32_t entry) const {
        const HostContainer::Entry *found = FindEntry(entry);
        return found == nullptr ? nullptr : &found->data;
    }
    Data *Live(std::int32_t entry);  // the same, to be written through until the entry is removed
    std::int32_t IndexOf(std::int32_t entry) const;
    std::int32_t IdAt(std::int32_t index) const;  // or -1
    const Data *DataAt(std::int32_t index) const;
    Data *LiveAt(std::int32_t index);
    void Set(std::int32_t entry, Data data);     // replaces in place, or appends
    void Append(std::int32_t entry, Data data);  // without looking for an existing entry
    bool Remove(std::int32_t entry);
    bool RemoveAt(std::int32_t index);
    void Merge(const Container &source);
    void Sort();
    std::uint32_t Dirty() const { return dirty; }
    // Here or deeper; also after the last one was removed.
    bool MayHoldLinks() const { return body != nullptr && body->has_links; }

    std::int32_t Whole(std::int32_t entry, std::int32_t fallback = 0) const;
    double Real(std::int32_t entry, double fallback = 0) const;
    std::string Text(std::int32_t entry) const;
    Vector GetVector(std::int32_t entry) const;
    Time GetTime(std::int32_t entry) const;
    HostAtom *Link(std::int32_t entry, const HostAtom *document, std::int32_t instance_of = 0) const;
    void SetWhole(std::int32_t entry, std::int32_t value);
    void SetReal(std::int32_t entry, double value);
    void SetVector(std::int32_t entry, const Vector &value);

    bool operator==(const Container &other) const;  // same ids, order and values
    bool operator!=(const Container &other) const { return !(*this == other); }

    // First level = entry; deeper levels go into sub-containers and vector components (1000 to 1002).
    bool GetParameter(const TableDescID &id, Data *out) const;
    bool SetParameter(const TableDescID &id, const Data &data);

  private:
    HostContainer::Entry *FindEntry(std::int32_t entry) const {
        if (body == nullptr) return nullptr;
        const auto found = body->first_with_id.find(entry);
        return found == body->first_with_id.end() ? nullptr : found->second;
    }
    // The same, in entries that are shared with nobody.
    HostContainer::Entry *FindOwnEntry(std::int32_t entry) {
        HostContainer::Entry *found = FindEntry(entry);
        if (found == nullptr || body->owners == 1) return found;
        Own();
        return FindEntry(entry);
    }
    HostContainer &Own();  // the entries, made where there are none, shared with nobody
};
static_assert(sizeof(Container) == sizeof(TableContainer), "a Container is a TableContainer");

inline Container &AsContainer(TableContainer *raw) { return *static_cast<Container *>(raw); }
inline const Container &AsContainer(const TableContainer *raw) { return *static_cast<const Container *>(raw); }

}  // namespace host
