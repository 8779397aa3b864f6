// Keys for a parameter of a tag or an object.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "host/animation/track.h"
#include "host/value/descid.h"

namespace tag_test {

// Values at frames, joined by straight lines.
inline void Animate(host::Node *node, const TableDescID &id, int fps,
                    std::initializer_list<std::pair<int, double>> keys) {
    auto track = host::Track::Create(node, id);
    ASSERT_NE(track, nullptr);
    for (const auto &[frame, value] : keys) {
        host::Key *key = track->GetCurve()->AddKey(host::MakeTime(frame, fps));
        ASSERT_NE(key, nullptr);
        key->SetValue(value);
        key->SetInterpolation(host::kInterpolationLinear);
    }
    ASSERT_TRUE(node->InsertTrack(track.release()));
}

}  // namespace tag_test
