// The options that judge a shaken move.
#pragma once

#include <string>

#include "library/formats/format.h"
#include "library/moves/played_motion.h"
#include "tremolux/command_line.h"
#include "tremolux/words/judgement.h"

namespace tremolux {

// As they were typed; empty: not at all.
struct JudgingChoices {
    std::string readout, against;

    bool IsNone() const { return readout.empty() && against.empty(); }
    // Throws a Failure for what cannot be read: before the move is played.
    Judgement Read(const FormatOptions &formats);
    // With what was read.
    void Judge(const PlayedMotion &motion, Judgement *judgement) const;

  private:
    CameraMove recording_;
};

void AddJudgingOptions(Command command, JudgingChoices *choices);

}  // namespace tremolux
