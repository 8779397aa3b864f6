// Parameters of tags that are evaluated.
#pragma once

enum {
    EXPRESSION_PRIORITY = 1000998,  // priority data
    EXPRESSION_ENABLE = 1000999     // Bool, default TRUE
};
