#include "library/runtime/parameter_sentences.h"

#include "tag/parameters.h"

namespace tremolux {

const char *ParameterSentence(std::int32_t parameter) {
    const ParameterInfo *info = FindParameter(parameter);
    return info != NULL && info->sentence != NULL ? info->sentence : "";
}

}  // namespace tremolux
