// What the command line takes, as data: for shells and the manual page.
#pragma once

#include <string>
#include <vector>

namespace tremolux {

struct DescribedOption {
    std::vector<std::string> names;  // with their dashes; of an argument its one name
    std::string help;
    bool is_argument = false, takes_value = false, required = false, repeats = false;
    std::vector<std::string> choices;  // empty: any value
};

struct DescribedCommand {
    std::string name, help;
    std::vector<DescribedOption> options;  // its own
    bool takes_parents_options = false;
    std::vector<DescribedCommand> commands;  // without hidden ones
};

}  // namespace tremolux
