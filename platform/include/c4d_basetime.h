// A time as a fraction of seconds.
#pragma once

#include "ge_math.h"

class BaseTime {
  public:
    // 0/1.
    BaseTime() : numerator_(0.0), denominator_(1.0) {}
    BaseTime(_DONTCONSTRUCT) {}
    // Rounds to milliseconds: frame times need BaseTime(frame, fps).
    explicit BaseTime(Real seconds) : numerator_(0.0), denominator_(1000.0) {
        if (seconds == seconds) numerator_ = Floor(FCut(seconds, -1.0e15, 1.0e15) * 1000.0 + 0.5);
        Reduce();
    }
    // z / n seconds, both rounded to whole numbers: frame f at rate r is BaseTime(f, r).
    explicit BaseTime(Real z, Real n) : numerator_(Floor(Abs(z) + 0.5)), denominator_(Floor(Abs(n) + 0.5)) {
        if (denominator_ < 1.0) denominator_ = 1.0;
        if ((z < 0.0) != (n < 0.0)) numerator_ = -numerator_;
        Reduce();
    }

    // Seconds.
    Real Get() const { return denominator_ == 0.0 ? 0.0 : numerator_ / denominator_; }
    Real GetNumerator() const { return numerator_; }
    Real GetDenominator() const { return denominator_; }
    void SetNumerator(Real numerator) { numerator_ = numerator; }
    // At least 1.
    void SetDenominator(Real denominator) { denominator_ = denominator >= 1.0 ? denominator : 1.0; }

    // Cut toward zero; 0 without a denominator, and cut to the range of a LONG.
    LONG GetFrame(Real fps) const {
        if (Floor(denominator_) == 0.0) return 0;
        const Real frame = Floor(numerator_ * fps) / Floor(denominator_);
        if (frame != frame) return 0;
        if (frame >= 2147483647.0) return 2147483647;
        if (frame <= -2147483648.0) return -2147483647 - 1;
        return static_cast<LONG>(frame);
    }

    // Moves the time down to the start of its frame.
    void Quantize(Real fps) {
        if (Floor(denominator_) == 0.0 || !(Floor(fps) > 0.0)) return;
        numerator_ = Floor(Floor(numerator_ * fps) / Floor(denominator_));
        denominator_ = Floor(fps);
        Reduce();
    }

    friend BaseTime operator+(const BaseTime &a, const BaseTime &b) {
        return BaseTime(a.numerator_ * b.denominator_ + b.numerator_ * a.denominator_, a.denominator_ * b.denominator_);
    }
    friend BaseTime operator-(const BaseTime &a, const BaseTime &b) {
        return BaseTime(a.numerator_ * b.denominator_ - b.numerator_ * a.denominator_, a.denominator_ * b.denominator_);
    }
    friend BaseTime operator*(const BaseTime &a, const BaseTime &b) {
        return BaseTime(a.numerator_ * b.numerator_, a.denominator_ * b.denominator_);
    }
    friend BaseTime operator/(const BaseTime &a, const BaseTime &b) {
        return BaseTime(a.numerator_ * b.denominator_, a.denominator_ * b.numerator_);
    }

    friend Bool operator==(const BaseTime &a, const BaseTime &b) { return a.Compare(b) == 0; }
    friend Bool operator!=(const BaseTime &a, const BaseTime &b) { return a.Compare(b) != 0; }
    friend Bool operator<(const BaseTime &a, const BaseTime &b) { return a.Compare(b) < 0; }
    friend Bool operator<=(const BaseTime &a, const BaseTime &b) { return a.Compare(b) <= 0; }
    friend Bool operator>(const BaseTime &a, const BaseTime &b) { return a.Compare(b) > 0; }
    friend Bool operator>=(const BaseTime &a, const BaseTime &b) { return a.Compare(b) >= 0; }

  private:
    LONG Compare(const BaseTime &other) const {
        if (numerator_ == other.numerator_ && denominator_ == other.denominator_) return 0;
        const Real left = Floor(numerator_ * other.denominator_), right = Floor(other.numerator_ * denominator_);
        return left < right ? -1 : left > right ? 1 : 0;
    }

    void Reduce() {
        // Times that are no finite fraction count as 0.
        if (!std::isfinite(numerator_) || !std::isfinite(denominator_) || Abs(numerator_) < 0.001 ||
            Abs(denominator_) < 0.001) {
            numerator_ = 0.0;
            denominator_ = 1.0;
            return;
        }
        const Real divisor = GreatestCommonDivisor(Abs(numerator_), Abs(denominator_));
        numerator_ /= divisor;
        denominator_ /= divisor;
    }

    static Real GreatestCommonDivisor(Real a, Real b) {
        if (a <= 2147483647.0 && b <= 2147483647.0) {
            LONG m = static_cast<LONG>(a), n = static_cast<LONG>(b);
            while (n) {
                const LONG rest = m % n;
                m = n;
                n = rest;
            }
            return m ? static_cast<Real>(m) : 1.0;
        }
        while (b >= 0.5) {
            const Real rest = FMod(a, b);
            a = b;
            b = rest;
        }
        return a;
    }

    Real numerator_, denominator_;
};
