#include "host/watch/judge.h"

#include <mutex>

#include "host/watch/operation.h"

namespace host {

namespace {

std::mutex judge_lock;
std::string first;

}  // namespace

std::string FirstWrongCall() {
    const std::lock_guard<std::mutex> hold(judge_lock);
    return first;
}

void ForgetWrongCall() {
    const std::lock_guard<std::mutex> hold(judge_lock);
    first.clear();
}

void Complain(const std::string &entry, const std::string &found, const std::string &expected) {
    const std::string operation = Operation::Path();
    const std::lock_guard<std::mutex> hold(judge_lock);
    if (!first.empty()) return;
    first = (operation.empty() ? "outside of any operation" : operation) + ": " + entry + ": found " + found +
            ", expected " + expected;
}

}  // namespace host
