// Documents on disk: objects, tags, tracks, links, settings.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/scene/document.h"

namespace host {

// false with one line in `error` (file, what was expected). An existing file is replaced only by a complete new one.
// Same document in, same bytes out.
bool SaveDocument(Document *document, const std::filesystem::path &file, std::string *error);
// null with one line in `error`. Tags of types that nobody registered are kept as they were stored and saved again.
std::unique_ptr<Document> LoadDocument(const std::filesystem::path &file, std::string *error);

}  // namespace host
