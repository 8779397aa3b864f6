#include "library/interface/guard.h"

#include <new>

#include "library/failure.h"

namespace tremolux {
namespace {

tremolux_status StatusOf(const Failure &failure) {
    switch (failure.Status()) {
        case kExitInput:
            return TREMOLUX_INPUT;
        case kExitModule:
            return TREMOLUX_MODULE;
        default:
            return TREMOLUX_INTERNAL;
    }
}

}  // namespace

ErrorLine &ThreadError() {
    static thread_local ErrorLine error;
    return error;
}

tremolux_status Guarded(ErrorLine *error, const std::function<void()> &work) {
    const auto refuse = [error](tremolux_status status, const char *line) {
        error->Set(line);
        return status;
    };
    try {
        error->Clear();
        work();
        return TREMOLUX_OK;
    } catch (const Refusal &refusal) {
        return refuse(refusal.Status(), refusal.what());
    } catch (const Failure &failure) {
        return refuse(StatusOf(failure), failure.what());
    } catch (const std::bad_alloc &) {
        return refuse(TREMOLUX_INTERNAL, "there is not enough memory");
    } catch (const std::exception &exception) {
        return refuse(TREMOLUX_INTERNAL, exception.what());
    } catch (...) {
        return refuse(TREMOLUX_INTERNAL, "what was called back threw something");
    }
}

void RefuseInput(const std::string &place, const std::string &found, const std::string &expected) {
    throw Refusal(TREMOLUX_INPUT, place + ": found " + found + ", expected " + expected);
}

void RequirePointer(const void *pointer, const char *what) {
    if (pointer == nullptr) RefuseInput(what, "NULL", "a pointer");
}

}  // namespace tremolux
