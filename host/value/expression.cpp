#include "host/value/expression.h"

#include <charconv>
#include <cmath>

namespace host {

namespace {

// By recursive descent. Every method consumes what it reads from the front of the text.
class Parser {
  public:
    explicit Parser(std::string_view text) : rest_(text) {}

    bool Whole(double *value) { return Sum(value) && Next() == 0 && std::isfinite(*value); }

  private:
    // The text comes from outside: its nesting must not decide how deep the stack grows.
    static constexpr int kDeepest = 100;

    char Next() {
        while (!rest_.empty() && (rest_[0] == ' ' || rest_[0] == '\t')) rest_.remove_prefix(1);
        return rest_.empty() ? '\0' : rest_[0];
    }

    bool Take(char wanted) {
        if (Next() != wanted || rest_.empty()) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool Sum(double *value) {
        if (!Product(value)) return false;
        for (;;) {
            const bool plus = Take('+');
            if (!plus && !Take('-')) return true;
            double operand = 0;
            if (!Product(&operand)) return false;
            *value = plus ? *value + operand : *value - operand;
        }
    }

    bool Product(double *value) {
        if (!Signed(value)) return false;
        for (;;) {
            const bool times = Take('*');
            if (!times && !Take('/')) return true;
            double operand = 0;
            if (!Signed(&operand)) return false;
            *value = times ? *value * operand : *value / operand;
        }
    }

    bool Signed(double *value) {
        bool negative = false;
        for (;;) {
            if (Take('-'))
                negative = !negative;
            else if (!Take('+'))
                break;
        }
        if (!Power(value)) return false;
        if (negative) *value = -*value;
        return true;
    }

    bool Power(double *value) {
        if (!Operand(value)) return false;
        if (!Take('^')) return true;
        if (++depth_ > kDeepest) return false;
        double exponent = 0;
        if (!Signed(&exponent)) return false;
        --depth_;
        *value = std::pow(*value, exponent);
        return true;
    }

    bool Operand(double *value) {
        if (!Take('(')) return Number(value);
        if (++depth_ > kDeepest || !Sum(value) || !Take(')')) return false;
        --depth_;
        return true;
    }

    bool Number(double *value) {
        const char first = Next();
        if (first != '.' && (first < '0' || first > '9')) return false;  // from_chars would also take "inf" and "nan"
        const auto end = std::from_chars(rest_.data(), rest_.data() + rest_.size(), *value);
        if (end.ec != std::errc()) return false;
        rest_.remove_prefix(static_cast<std::size_t>(end.ptr - rest_.data()));
        return true;
    }

    std::string_view rest_;
    int depth_ = 0;
};

}  // namespace

bool ParseExpression(std::string_view text, double *value) {
    double result = 0;
    if (!Parser(text).Whole(&result)) return false;
    *value = result;
    return true;
}

}  // namespace host
