// Processes of this program that share pieces of work out among them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tremolux {

// How many run at once where nobody says it: as many as the system has cores.
int UsualJobs();

// Starts this program `jobs` times with the arguments. Each reads the number of a piece from its standard input, a
// line, and answers with a line, the number and a text with a tab between them, before it gets another. `at_answer` is
// called for every piece as it is done; what the processes say on their standard error output goes to this one's.
// Throws a Failure: one of them ended too early, or this program was interrupted, after all have ended.
void ShareOut(const std::vector<std::string> &arguments, int jobs, std::size_t pieces,
              const std::function<void(std::size_t piece, const std::string &text)> &at_answer);

// The other end: does piece after piece, until there are no more.
void DoPieces(const std::function<std::string(std::size_t piece)> &work);

}  // namespace tremolux
