#include "host/watch/operation.h"

namespace host {

namespace {

thread_local const Operation *innermost = nullptr;

}  // namespace

Operation::Operation(const char *name, Kind kind)
    : name_(name), evaluating_(kind == kEvaluation || Evaluating()), outer_(innermost) {
    innermost = this;
}

Operation::~Operation() { innermost = outer_; }

std::string Operation::Path() {
    std::string path;
    for (const Operation *operation = innermost; operation != nullptr; operation = operation->outer_) {
        if (!path.empty()) path.insert(0, " > ");
        path.insert(0, operation->name_);
    }
    return path;
}

bool Operation::Evaluating() { return innermost != nullptr && innermost->evaluating_; }

}  // namespace host
