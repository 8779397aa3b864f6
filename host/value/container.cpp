#include "host/value/container.h"

#include <algorithm>
#include <utility>

#include "host/value/descid.h"

namespace host {

namespace {

using Entry = HostContainer::Entry;

std::vector<std::unique_ptr<Entry>>::iterator PlaceOf(HostContainer *body, const Entry *entry) {
    return std::find_if(body->entries.begin(), body->entries.end(), [&](const auto &e) { return e.get() == entry; });
}

void RebuildIndex(HostContainer *body) {
    body->first_with_id.clear();
    for (const auto &entry : body->entries) body->first_with_id.emplace(entry->id, entry.get());
}

void RemovePlace(HostContainer *body, std::vector<std::unique_ptr<Entry>>::iterator place) {
    const std::int32_t id = (*place)->id;
    auto indexed = body->first_with_id.find(id);
    const bool was_first = indexed != body->first_with_id.end() && indexed->second == place->get();
    const auto rest = body->entries.erase(place);
    if (!was_first) return;
    const auto next = std::find_if(rest, body->entries.end(), [&](const auto &e) { return e->id == id; });
    if (next == body->entries.end())
        body->first_with_id.erase(indexed);
    else
        indexed.value() = next->get();
}

std::unique_ptr<HostContainer> CopyOf(const HostContainer &source, HostAliasTrans *translation) {
    auto copy = std::make_unique<HostContainer>();
    copy->has_links = source.has_links;
    copy->entries.reserve(source.entries.size());
    copy->first_with_id.reserve(source.entries.size());
    for (const auto &entry : source.entries) {
        auto &added = copy->entries.emplace_back(new Entry{entry->id, Data()});
        CopyData(&added->data, entry->data, translation);
        copy->first_with_id.emplace(added->id, added.get());
    }
    return copy;
}

bool HoldsLinks(const TableData &data) {
    if (data.type == kDataLink) return true;
    if (data.type != kDataContainer || data.value.container == nullptr) return false;
    const HostContainer *body = data.value.container->body;
    return body != nullptr && body->has_links;
}

void AppendOwned(HostContainer *body, std::int32_t id, Data data) {
    body->has_links = body->has_links || HoldsLinks(data);
    auto entry = std::unique_ptr<Entry>(new Entry{id, std::move(data)});
    Entry *added = entry.get();
    body->entries.push_back(std::move(entry));
    try {
        body->first_with_id.emplace(id, added);
    } catch (...) {
        body->entries.pop_back();
        throw;
    }
}

// Gives up one container's share.
void Leave(HostContainer *body) {
    if (body != nullptr && --body->owners == 0) delete body;
}

bool IsAnyNumber(const Data *data) {
    return data != nullptr && (data->type == kDataWhole || data->type == kDataReal || data->type == kDataWhole64);
}

// The component that an id level names, or null.
double *Component(Vector *vector, std::int32_t id) {
    switch (id) {
        case kVectorX:
            return &vector->x;
        case kVectorY:
            return &vector->y;
        case kVectorZ:
            return &vector->z;
        default:
            return nullptr;
    }
}

}  // namespace

Container::Container() : Container(0) {}
Container::Container(std::int32_t own_id) : TableContainer() { id = own_id; }
Container::Container(const Container &other) : Container() { CopyFrom(other, nullptr); }
Container::Container(Container &&other) noexcept : Container() { std::swap<TableContainer>(*this, other); }

Container &Container::operator=(const Container &other) {
    CopyFrom(other, nullptr);
    return *this;
}

Container &Container::operator=(Container &&other) noexcept {
    Container taken(std::move(other));
    taken.dirty += dirty + 1;
    std::swap<TableContainer>(*this, taken);
    return *this;
}

Container::~Container() { Leave(body); }

HostContainer &Container::Own() {
    if (body == nullptr) {
        body = new HostContainer;
    } else if (body->owners > 1) {
        HostContainer *own = CopyOf(*body, nullptr).release();
        Leave(std::exchange(body, own));
    }
    return *body;
}

void Container::CopyFrom(const TableContainer &other, HostAliasTrans *translation) {
    // The copy is complete before the old entries go: `other` may be one of them.
    HostContainer *copy = nullptr;
    if (other.body != nullptr) {
        const bool shared = !other.body->exposed && (translation == nullptr || !other.body->has_links);
        copy = shared ? other.body : CopyOf(*other.body, translation).release();
        if (shared) ++copy->owners;
    }
    id = other.id;
    ++dirty;
    Leave(std::exchange(body, copy));
}

void Container::Flush() {
    if (body == nullptr) return;
    ++dirty;
    Leave(std::exchange(body, nullptr));
}

std::int32_t Container::Count() const { return body == nullptr ? 0 : static_cast<std::int32_t>(body->entries.size()); }

Data *Container::Live(std::int32_t entry) {
    HostContainer::Entry *found = FindOwnEntry(entry);
    if (found == nullptr) return nullptr;
    body->exposed = true;
    return &found->data;
}

std::int32_t Container::IndexOf(std::int32_t entry) const {
    if (Find(entry) == nullptr) return -1;
    return static_cast<std::int32_t>(PlaceOf(body, body->first_with_id.at(entry)) - body->entries.begin());
}

std::int32_t Container::IdAt(std::int32_t index) const {
    return index >= 0 && index < Count() ? body->entries[static_cast<std::size_t>(index)]->id : -1;
}

const Data *Container::DataAt(std::int32_t index) const {
    return index >= 0 && index < Count() ? &body->entries[static_cast<std::size_t>(index)]->data : nullptr;
}

Data *Container::LiveAt(std::int32_t index) {
    if (index < 0 || index >= Count()) return nullptr;
    Own().exposed = true;
    return &body->entries[static_cast<std::size_t>(index)]->data;
}

// `data` is a value of its own: what was given may lie inside the entry that is replaced.
void Container::Set(std::int32_t entry, Data data) {
    HostContainer &own = Own();
    const auto found = own.first_with_id.find(entry);
    if (found == own.first_with_id.end()) {
        AppendOwned(&own, entry, std::move(data));
    } else {
        own.has_links = own.has_links || HoldsLinks(data);
        found->second->data = std::move(data);
    }
    ++dirty;
}

void Container::Append(std::int32_t entry, Data data) {
    AppendOwned(&Own(), entry, std::move(data));
    ++dirty;
}

bool Container::Remove(std::int32_t entry) {
    if (Find(entry) == nullptr) return false;
    HostContainer &own = Own();
    RemovePlace(&own, PlaceOf(&own, own.first_with_id.at(entry)));
    ++dirty;
    return true;
}

bool Container::RemoveAt(std::int32_t index) {
    if (index < 0 || index >= Count()) return false;
    HostContainer &own = Own();
    RemovePlace(&own, own.entries.begin() + index);
    ++dirty;
    return true;
}

void Container::Merge(const Container &source) {
    // A copy, for `source` may lie inside an entry that is replaced.
    const Container copy(source);  // NOLINT(performance-unnecessary-copy-initialization)
    for (std::int32_t i = 0; i < copy.Count(); ++i) Set(copy.IdAt(i), *copy.DataAt(i));
}

void Container::Sort() {
    if (body == nullptr) return;
    HostContainer &own = Own();
    std::stable_sort(own.entries.begin(), own.entries.end(),
                     [](const auto &a, const auto &b) { return a->id < b->id; });
    RebuildIndex(&own);
    ++dirty;
}

std::int32_t Container::Whole(std::int32_t entry, std::int32_t fallback) const {
    const Data *data = Find(entry);
    return IsAnyNumber(data) ? data->Whole() : fallback;
}

double Container::Real(std::int32_t entry, double fallback) const {
    const Data *data = Find(entry);
    return IsAnyNumber(data) ? data->Real() : fallback;
}

std::string Container::Text(std::int32_t entry) const {
    const Data *data = Find(entry);
    return data == nullptr ? std::string() : data->Text();
}

Vector Container::GetVector(std::int32_t entry) const {
    const Data *data = Find(entry);
    return data == nullptr ? Vector{0, 0, 0} : data->GetVector();
}

Time Container::GetTime(std::int32_t entry) const {
    const Data *data = Find(entry);
    return data == nullptr ? Time{0, 1} : data->GetTime();
}

HostAtom *Container::Link(std::int32_t entry, const HostAtom *document, std::int32_t instance_of) const {
    const Data *data = Find(entry);
    return data == nullptr ? nullptr : data->Link(document, instance_of);
}

void Container::SetWhole(std::int32_t entry, std::int32_t value) {
    HostContainer::Entry *existing = FindOwnEntry(entry);
    if (existing == nullptr || existing->data.type != kDataWhole) {
        Set(entry, Data(value));
        return;
    }
    existing->data.value.whole = value;
    ++dirty;
}

void Container::SetReal(std::int32_t entry, double value) {
    HostContainer::Entry *existing = FindOwnEntry(entry);
    if (existing == nullptr || existing->data.type != kDataReal) {
        Set(entry, Data(value));
        return;
    }
    existing->data.value.real = value;
    ++dirty;
}

void Container::SetVector(std::int32_t entry, const Vector &value) {
    HostContainer::Entry *existing = FindOwnEntry(entry);
    if (existing == nullptr || existing->data.type != kDataVector || existing->data.value.vector == nullptr) {
        Set(entry, Data(value));
        return;
    }
    *existing->data.value.vector = value;
    ++dirty;
}

bool Container::operator==(const Container &other) const {
    if (body == other.body) return true;
    const std::int32_t count = Count();
    if (count != other.Count()) return false;
    for (std::int32_t i = 0; i < count; ++i)
        if (IdAt(i) != other.IdAt(i) || !EqualData(*DataAt(i), *other.DataAt(i))) return false;
    return true;
}

bool Container::GetParameter(const TableDescID &place, Data *out) const {
    const std::int32_t depth = std::min(place.depth, TABLE_DESC_LEVELS);
    const Container *container = this;
    for (std::int32_t level = 0; level < depth; ++level) {
        const Data *data = container->Find(place.level[level].id);
        if (data == nullptr) return false;
        if (level + 1 == depth) {
            *out = *data;
            return true;
        }
        if (data->type == kDataVector && level + 2 == depth) {
            Vector vector = data->GetVector();
            const double *component = Component(&vector, place.level[level + 1].id);
            if (component != nullptr) *out = Data(*component);
            return component != nullptr;
        }
        container = data->GetContainer();
        if (container == nullptr) return false;
    }
    return false;
}

bool Container::SetParameter(const TableDescID &place, const Data &data) {
    constexpr std::int32_t kSubContainer = 5, kColor = 3;
    const std::int32_t depth = std::min(place.depth, TABLE_DESC_LEVELS);
    // What every frame sets, without a copy. Others are copied: they may lie in what is replaced.
    if (depth == 1 && data.type == kDataReal) {
        SetReal(place.level[0].id, data.Real());
        return true;
    }
    const Data copy(data);
    Container *container = this;
    for (std::int32_t level = 0; level < depth; ++level) {
        const TableDescLevel &here = place.level[level];
        if (level + 1 == depth) {
            container->Set(here.id, copy);
            return true;
        }
        const Data *inner = container->Find(here.id);
        // What a level without an entry stands for is known from its data type alone.
        const bool vector =
            inner != nullptr ? inner->type == kDataVector : here.dtype == kDataVector || here.dtype == kColor;
        if (vector) {
            Vector changed = inner == nullptr ? Vector{0, 0, 0} : inner->GetVector();
            double *component = Component(&changed, place.level[level + 1].id);
            if (component == nullptr || level + 2 != depth || !IsAnyNumber(&copy)) return false;
            *component = copy.Real();
            container->SetVector(here.id, changed);
            return true;
        }
        if (inner == nullptr && here.dtype == kSubContainer) container->Set(here.id, Data(Container()));
        Data *live = container->Live(here.id);
        container = live == nullptr ? nullptr : live->GetContainer();
        if (container == nullptr) return false;
    }
    return false;
}

}  // namespace host
