#include "presets/order.h"

namespace {

String Prefix(const String &name) {
    LONG separator;
    return name.FindFirst('_', &separator) ? name.Left(separator) : String();
}

Bool WholeNameComesBefore(const String &a, const String &b) {
    const String x = a.ToLower(), y = b.ToLower();
    const LONG compared = LMin(x.GetLength(), y.GetLength()) - 1;
    for (LONG i = 0; i < compared; i++)
        if (x[i] != y[i]) return x[i] < y[i];
    return FALSE;
}

}  // namespace

String DisplayName(const String &name) {
    LONG separator;
    if (!name.FindFirst('_', &separator)) return name;
    return name.Right(name.GetLength() - separator - 1);
}

Bool ComesBefore(const String &a, const String &b) {
    const String x = Prefix(a), y = Prefix(b);
    if (!x.Content() || !y.Content()) return WholeNameComesBefore(a, b);
    if (x.GetLength() != y.GetLength()) return x.GetLength() < y.GetLength();
    return x < y;
}
