#include "host/animation/track.h"

#include <cmath>

#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "host/value/time.h"

namespace host {
namespace {

constexpr std::int32_t kCategoryNumbers = 1, kCategoryData = 2;

// 0: it cannot be animated. A vector has one track for each component.
std::int32_t CategoryOf(const Node &node, const TableDescID &id) {
    host::Data value;
    if (!node.GetParameter(id, &value)) return 0;
    DescribedParameter described;
    switch (value.type) {
        case kDataReal:
        case kDataTime:
            return kCategoryNumbers;
        case kDataWhole:
            // Only the description can tell a switch from a number.
            return FindDescribed(&node, id, &described) && described.described_type == kDescribedBool
                       ? kCategoryData
                       : kCategoryNumbers;
        case kDataNil:
        case kDataVoid:
        case kDataVector:
        case kDataMatrix:
            return 0;
        default:
            return kCategoryData;
    }
}

// The curve's rise a second where it leaves its first or last key.
double EndSlope(const Curve &curve, bool at_end) {
    const std::int32_t count = curve.KeyCount();
    if (count < 2) return 0;
    const Key &left = *curve.KeyAt(at_end ? count - 2 : 0), &right = *curve.KeyAt(at_end ? count - 1 : 1);
    const double length = Seconds(right.GetTime()) - Seconds(left.GetTime());
    if (left.GetInterpolation() == kInterpolationStep || !(length > 0)) return 0;
    const double chord = (right.GetValue() - left.GetValue()) / length;
    if (left.GetInterpolation() == kInterpolationLinear) return chord;
    if (at_end && right.GetInterpolation() == kInterpolationLinear) return chord;
    const Key::Tangent &tangent = at_end ? right.left : left.right;
    const double time = std::fabs(Seconds(tangent.time));
    return (at_end ? -tangent.value : tangent.value) / (time > 0 ? time : length / 3);
}

}  // namespace

Track::Track(const TableDescID &id, std::int32_t category)
    : Node(kTypeTrack), id_(id), category_(category), curve_(std::make_unique<Curve>(this)) {}

Track::~Track() {
    Detach();
    curve_->track_ = nullptr;
}

std::unique_ptr<Track> Track::Create(Node *node, const TableDescID &id) {
    if (node == nullptr || id.depth < 1 || id.depth > TABLE_DESC_LEVELS) return nullptr;
    const std::int32_t category = CategoryOf(*node, WithoutEmptyLevels(id));
    return std::unique_ptr<Track>(category != 0 ? new Track(id, category) : nullptr);
}

Document *Track::GetDocument() const { return node_ != nullptr ? node_->GetDocument() : nullptr; }

bool Track::RemoveFromOwner() {
    if (node_ == nullptr) return false;
    node_->RemoveTrack(this);
    return true;
}

double Track::ValueAt(const Time &time) const {
    const std::int32_t count = curve_->KeyCount();
    if (count == 0) return 0;
    if (category_ == kCategoryData) return DataAt(time).Real();
    const Key &first = *curve_->KeyAt(0), &last = *curve_->KeyAt(count - 1);
    const bool is_before = Before(time, first.GetTime()), is_after = Before(last.GetTime(), time);
    if (!is_before && !is_after) return curve_->ValueAt(time);

    const Key &end = is_before ? first : last;
    const std::int32_t loop = is_before ? before : after;
    const double seconds = Seconds(time), start = Seconds(first.GetTime());
    const double length = Seconds(last.GetTime()) - start;
    if (loop == kLoopContinue) {
        return end.GetValue() + EndSlope(*curve_, is_after) * (seconds - Seconds(end.GetTime()));
    }
    if (loop < kLoopRepeat || loop > kLoopOscillate || !(length > 0)) return end.GetValue();
    const double rounds = std::floor((seconds - start) / length);
    const double inside = seconds - start - rounds * length;
    const bool backwards = loop == kLoopOscillate && std::fmod(rounds, 2) != 0;
    const double value = curve_->ValueAtSeconds(start + (backwards ? length - inside : inside));
    return loop == kLoopOffsetRepeat ? value + rounds * (last.GetValue() - first.GetValue()) : value;
}

bool Track::Governs(const Time &time) const {
    const std::int32_t count = curve_->KeyCount();
    if (count == 0) return false;
    if (before == kLoopOff && Before(time, curve_->KeyAt(0)->GetTime())) return false;
    return after != kLoopOff || !Before(curve_->KeyAt(count - 1)->GetTime(), time);
}

const Key *Track::KeyBefore(const Time &time) const {
    const Key *key = curve_->FindKey(time, nullptr, Curve::kMatchLeft);
    return key != nullptr ? key : curve_->KeyAt(0);
}

host::Data Track::DataAt(const Time &time) const {
    const Key *key = KeyBefore(time);
    if (key == nullptr) return host::Data();
    return key->data.type != kDataNil ? key->data : host::Data(TruncatedWhole(key->GetValue()));
}

Node *Track::CreateSameKind() const { return new Track(id_, category_); }

bool Track::CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    Track *track = static_cast<Track *>(copy);
    if (track->node_ == nullptr) track->id_ = id_;
    track->before = before;
    track->after = after;
    track->category_ = category_;
    return curve_->CopyOwnState(track->curve_.get(), flags, translation);
}

}  // namespace host
