#include "library/shots/keys.h"

#include <functional>
#include <memory>

#include "host/animation/track.h"
#include "host/description/description.h"
#include "host/value/descid.h"
#include "library/failure.h"

namespace tremolux {
namespace {

constexpr double kTangentShare = 1.0 / 3;  // of the way to the next key: flat on the key, and as steep as a cosine between

using Channel = std::function<double(const CameraSample &)>;

bool IsConstant(const CameraMove &move, const Channel &channel) {
    for (const CameraSample &sample : move.samples) {
        if (channel(sample) != channel(move.samples.front())) return false;
    }
    return true;
}

// A linear key on every frame; a channel that never changes gets one key, which holds for all time.
void KeyChannel(host::Object *object, const TableDescID &id, const CameraMove &move, int frames_per_second,
                const Channel &channel) {
    if (host::Track *old = object->FindTrack(id)) {
        object->RemoveTrack(old);
        delete old;
    }
    std::unique_ptr<host::Track> track = host::Track::Create(object, id);
    if (!track) throw Failure(kExitInternal, object->Name() + " cannot be animated");
    const std::size_t keys = IsConstant(move, channel) ? 1 : move.samples.size();
    for (std::size_t i = 0; i < keys; ++i) {
        const double frame = static_cast<double>(move.first_frame + static_cast<std::int64_t>(i));
        host::Key *key = track->GetCurve()->AddKey(host::MakeTime(frame, frames_per_second));
        key->SetInterpolation(host::kInterpolationLinear);
        key->SetValue(channel(move.samples[i]));
    }
    object->InsertTrack(track.release());
}

void KeyVector(host::Object *object, std::int32_t parameter, const CameraMove &move, int frames_per_second,
               host::Vector CameraSample::*vector) {
    const auto animate = [&](std::int32_t component, double host::Vector::*number) {
        KeyChannel(object, host::MakeId(parameter, component), move, frames_per_second,
                   [=](const CameraSample &sample) { return sample.*vector.*number; });
    };
    animate(host::kVectorX, &host::Vector::x);
    animate(host::kVectorY, &host::Vector::y);
    animate(host::kVectorZ, &host::Vector::z);
}

std::string IdText(const TableDescID &id) {
    std::string text;
    for (std::int32_t level = 0; host::LevelId(id, level) != 0; ++level)
        text += (level > 0 ? "/" : "") + std::to_string(host::LevelId(id, level));
    return text;
}

// Of a vector: X, Y, Z, or the angles H, P, B; empty for the whole parameter.
std::string ComponentName(const TableDescID &id) {
    const std::int32_t parameter = host::LevelId(id, 0);
    const bool is_angle = parameter == host::kParamRelRotation || parameter == host::kParamFrozenRotation;
    switch (host::LevelId(id, 1)) {
        case host::kVectorX:
            return is_angle ? " . H" : " . X";
        case host::kVectorY:
            return is_angle ? " . P" : " . Y";
        case host::kVectorZ:
            return is_angle ? " . B" : " . Z";
        default:
            return "";
    }
}

// As a track of it is labelled; its id where the node does not describe it.
std::string ParameterName(host::Description *description, const TableDescID &id) {
    const host::Description::Entry *entry = description->Find(host::MakeId(host::LevelId(id, 0)));
    const std::string name = entry != nullptr ? entry->settings.Text(host::kDescName) : "";
    return name.empty() ? IdText(id) : name + ComponentName(id);
}

}  // namespace

void KeyPosition(host::Object *object, const CameraMove &points, int frames_per_second) {
    KeyVector(object, host::kParamRelPosition, points, frames_per_second, &CameraSample::position);
}

void KeyCamera(host::Object *camera, const CameraMove &move, int frames_per_second) {
    KeyVector(camera, host::kParamRelPosition, move, frames_per_second, &CameraSample::position);
    KeyVector(camera, host::kParamRelRotation, move, frames_per_second, &CameraSample::angles);
    KeyChannel(camera, host::MakeId(host::kCameraFocalLength), move, frames_per_second,
               [](const CameraSample &sample) { return sample.focal_length; });
    KeyChannel(camera, host::MakeId(host::kCameraFocusDistance), move, frames_per_second,
               [](const CameraSample &sample) { return sample.focus_distance; });
}

void KeyNumber(host::Node *node, const TableDescID &id, const host::Time &time, double value,
               std::int32_t interpolation) {
    if (node->FindTrack(id) == nullptr) {
        std::unique_ptr<host::Track> track = host::Track::Create(node, id);
        if (!track) throw Failure(kExitInternal, node->Name() + " cannot be animated");
        node->InsertTrack(track.release());
    }
    host::Key *key = node->FindTrack(id)->GetCurve()->AddKey(time);
    key->SetInterpolation(interpolation);
    key->SetValue(value);
}

std::vector<ListedKey> ListKeys(const host::Object &object, int frames_per_second) {
    host::Description description;
    host::BuildDescription(&object, nullptr, 0, &description);
    std::vector<ListedKey> keys;
    for (const host::Track *track : object.Tracks()) {
        const std::string id = IdText(track->Id()), name = ParameterName(&description, track->Id());
        const host::Curve *curve = track->GetCurve();
        for (std::int32_t i = 0; i < curve->KeyCount(); ++i) {
            const host::Key *key = curve->KeyAt(i);
            keys.push_back({id, name, host::Seconds(key->GetTime()) * frames_per_second, key->GetValue()});
        }
    }
    return keys;
}

void FlattenSmoothKeys(const host::Track &track, int frames_per_second) {
    const host::Curve *curve = track.GetCurve();
    for (std::int32_t i = 0; i + 1 < curve->KeyCount(); ++i) {
        host::Key *from = curve->KeyAt(i), *to = curve->KeyAt(i + 1);
        if (from->GetInterpolation() != host::kInterpolationSpline) continue;
        const double frames = (host::Seconds(to->GetTime()) - host::Seconds(from->GetTime())) * frames_per_second;
        from->right.time = host::MakeTime(frames * kTangentShare, frames_per_second);
        to->left.time = host::MakeTime(-frames * kTangentShare, frames_per_second);
    }
}

}  // namespace tremolux
