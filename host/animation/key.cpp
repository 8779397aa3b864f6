#include "host/animation/track.h"
#include "host/value/time.h"

namespace host {

Key::Key() : Node(kTypeKey) {}

Key::~Key() { Detach(); }

Node *Key::Main() const { return curve_ != nullptr ? curve_->Main() : nullptr; }

Document *Key::GetDocument() const { return curve_ != nullptr ? curve_->GetDocument() : nullptr; }

void Key::SetTime(const Time &time) {
    time_ = time;
    if (curve_ != nullptr) curve_->Sort();
    SetDirty(kDirtyData);
}

void Key::SetValue(double value) {
    value_ = value;
    SetDirty(kDirtyData);
}

void Key::SetInterpolation(std::int32_t interpolation) {
    if (interpolation >= kInterpolationSpline && interpolation <= kInterpolationStep) interpolation_ = interpolation;
}

bool Key::CopyOwnState(Node *copy, std::int32_t, HostAliasTrans *translation) const {
    Key *key = static_cast<Key *>(copy);
    key->time_ = time_;
    key->value_ = value_;
    key->interpolation_ = interpolation_;
    key->left = left;
    key->right = right;
    ReleaseData(&key->data);
    CopyData(&key->data, data, translation);
    if (key->curve_ != nullptr) key->curve_->Sort();
    return true;
}

bool Key::RemoveFromOwner() {
    if (curve_ == nullptr) return false;
    curve_->RemoveKey(this);
    return true;
}

}  // namespace host
