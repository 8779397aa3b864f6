#include <algorithm>

#include "host/animation/segment.h"
#include "host/animation/track.h"
#include "host/value/time.h"

namespace host {
namespace {

// Between two neighbouring keys, by the left one's interpolation.
double Between(const Key &left, const Key &right, double seconds) {
    if (left.GetInterpolation() == kInterpolationStep) return left.GetValue();
    const double start = Seconds(left.GetTime()), end = Seconds(right.GetTime());
    const double rise = right.GetValue() - left.GetValue();
    if (left.GetInterpolation() == kInterpolationLinear) {
        return end > start ? left.GetValue() + rise * ((seconds - start) / (end - start)) : left.GetValue();
    }
    SplineSegment segment{start,
                          left.GetValue(),
                          end,
                          right.GetValue(),
                          Seconds(left.right.time),
                          left.right.value,
                          Seconds(right.left.time),
                          right.left.value};
    // A straight piece follows: the curve comes in along the chord.
    if (right.GetInterpolation() == kInterpolationLinear) {
        segment.left_tangent_time = (start - end) / 3;
        segment.left_tangent_value = -rise / 3;
    }
    return ValueOnSegment(segment, seconds);
}

bool Earlier(const Key *a, const Key *b) { return Before(a->GetTime(), b->GetTime()); }

}  // namespace

Curve::Curve(Track *track) : Node(kTypeCurve), track_(track) {}

Curve::~Curve() {
    Detach();
    Flush();
}

Node *Curve::Main() const { return track_ != nullptr ? track_->Main() : nullptr; }

Document *Curve::GetDocument() const { return track_ != nullptr ? track_->GetDocument() : nullptr; }

Key *Curve::KeyAt(std::int32_t index) const {
    return index >= 0 && index < KeyCount() ? keys_[static_cast<std::size_t>(index)] : nullptr;
}

std::size_t Curve::FirstAfter(const Time &time) const {
    // A bake is always at the end.
    if (keys_.empty() || !Before(time, keys_.back()->GetTime())) return keys_.size();
    const auto after = std::upper_bound(keys_.begin(), keys_.end(), time,
                                        [](const Time &t, const Key *key) { return Before(t, key->GetTime()); });
    return static_cast<std::size_t>(after - keys_.begin());
}

Key *Curve::FindKey(const Time &time, std::int32_t *index, std::int32_t match) const {
    const std::size_t after = FirstAfter(time);
    const bool exact = after > 0 && SameTime(keys_[after - 1]->GetTime(), time);
    std::int32_t found = static_cast<std::int32_t>(after) - 1;  // the last one before or at
    if (match == kMatchRight && !exact) ++found;
    if (match != kMatchLeft && match != kMatchRight && !exact) found = -1;
    Key *key = KeyAt(found);
    if (index != nullptr) *index = key != nullptr ? found : -1;
    return key;
}

void Curve::Place(Key *key, std::size_t index) {
    keys_.insert(keys_.begin() + static_cast<std::ptrdiff_t>(index), key);
    key->curve_ = this;
    key->LinkBetween(index > 0 ? keys_[index - 1] : nullptr, index + 1 < keys_.size() ? keys_[index + 1] : nullptr);
    SetDirty(kDirtyData);
}

Key *Curve::AddKey(const Time &time, std::int32_t *index) {
    if (Key *present = FindKey(time, index)) return present;
    auto key = std::make_unique<Key>();
    key->time_ = time;
    const std::size_t place = FirstAfter(time);
    Place(key.get(), place);
    if (index != nullptr) *index = static_cast<std::int32_t>(place);
    return key.release();
}

bool Curve::InsertKey(Key *key) {
    if (key == nullptr) return false;
    if (key->curve_ == this) return true;
    Key *present = FindKey(key->time_);
    key->Remove();
    Discard(present);
    Place(key, FirstAfter(key->time_));
    return true;
}

void Curve::RemoveKey(Key *key) {
    if (key == nullptr || key->curve_ != this) return;
    // Of several keys at one time it may be any.
    auto found = keys_.begin() + static_cast<std::ptrdiff_t>(FirstAfter(key->time_));
    while (found != keys_.begin() && *--found != key) continue;
    if (*found != key) found = std::find(keys_.begin(), keys_.end(), key);
    keys_.erase(found);
    key->curve_ = nullptr;
    static_cast<Node *>(key)->Unlink();
    SetDirty(kDirtyData);
}

void Curve::Flush() {
    while (!keys_.empty()) Discard(keys_.back());
}

void Curve::Sort() {
    if (std::is_sorted(keys_.begin(), keys_.end(), Earlier)) return;
    std::stable_sort(keys_.begin(), keys_.end(), Earlier);
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        keys_[i]->LinkBetween(i > 0 ? keys_[i - 1] : nullptr, i + 1 < keys_.size() ? keys_[i + 1] : nullptr);
    }
    SetDirty(kDirtyData);
}

double Curve::ValueAt(const Time &time) const {
    if (keys_.empty()) return 0;
    const std::size_t after = FirstAfter(time);
    if (after == 0) return keys_.front()->GetValue();
    const Key &left = *keys_[after - 1];
    if (after == keys_.size() || SameTime(left.GetTime(), time)) return left.GetValue();
    return Between(left, *keys_[after], Seconds(time));
}

double Curve::ValueAtSeconds(double seconds) const {
    if (keys_.empty()) return 0;
    const auto after = std::upper_bound(keys_.begin(), keys_.end(), seconds,
                                        [](double s, const Key *key) { return s < Seconds(key->GetTime()); });
    if (after == keys_.begin()) return keys_.front()->GetValue();
    if (after == keys_.end()) return keys_.back()->GetValue();
    return Between(**(after - 1), **after, seconds);
}

void Curve::Exchange(Curve *other) {
    std::swap(keys_, other->keys_);
    for (Key *key : keys_) key->curve_ = this;
    for (Key *key : other->keys_) key->curve_ = other;
    SetDirty(kDirtyData);
}

bool Curve::CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    Curve *curve = static_cast<Curve *>(copy);
    curve->Flush();
    curve->keys_.reserve(keys_.size());
    for (const Key *key : keys_) {
        Node *copied = static_cast<const Node *>(key)->CloneTree(flags, translation);
        if (copied == nullptr) return false;
        curve->Place(static_cast<Key *>(copied), curve->keys_.size());
    }
    return true;
}

}  // namespace host
