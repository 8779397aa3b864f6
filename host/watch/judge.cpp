#include "host/watch/judge.h"

#include "host/watch/operation.h"

namespace host {

namespace {

std::string first;

}  // namespace

const std::string &FirstWrongCall() { return first; }

void ForgetWrongCall() { first.clear(); }

void Complain(const char *entry, const std::string &found, const std::string &expected) {
    if (!first.empty()) return;
    const std::string operation = Operation::Path();
    first = (operation.empty() ? "outside of any operation" : operation) + ": " + entry + ": found " + found +
            ", expected " + expected;
}

}  // namespace host
