// The value between two keys.
#pragma once

namespace host {

// Times in seconds, values in the parameter's unit; tangents are offsets from their key, the left one's time is
// negative. A tangent without time spans a third of the segment: then a plain cubic Hermite curve runs through it.
struct SplineSegment {
    double start_time, start_value, end_time, end_value;
    double right_tangent_time, right_tangent_value;  // of the start key
    double left_tangent_time, left_tangent_value;    // of the end key
};

// On the Bezier curve through time and value; `time` is held inside the segment.
double ValueOnSegment(const SplineSegment &segment, double time);

}  // namespace host
