#include "tremolux/share_files.h"

#include "tremolux/process/output_files.h"
#include "tremolux/words/completions.h"
#include "tremolux/words/manual_page.h"

namespace tremolux {
namespace {

struct SharedFile {
    const char *place;  // below the folder of shared files, where each shell looks
    std::string (*text)(const DescribedCommand &program);
};
constexpr SharedFile kSharedFiles[] = {{"bash-completion/completions/tremolux", BashCompletion},
                                       {"zsh/site-functions/_tremolux", ZshCompletion},
                                       {"fish/vendor_completions.d/tremolux.fish", FishCompletion},
                                       {"man/man1/tremolux.1", ManualPage}};

void WriteSharedFiles(const std::string &folder, const DescribedCommand &program) {
    std::vector<std::string> files, texts;
    for (const SharedFile &shared : kSharedFiles) {
        const std::filesystem::path file = std::filesystem::u8path(folder) / shared.place;
        std::error_code error;
        std::filesystem::create_directories(file.parent_path(), error);
        files.push_back(file.u8string());
        texts.push_back(shared.text(program));
    }
    OutputFiles(files, {}).Write(texts);
}

}  // namespace

void AddShareFilesCommand(const CommandLine &line, Action *action) {
    const auto folder = std::make_shared<std::string>();
    Command command = line.Program().Subcommand("share-files", "Writes the completions of shells and the manual page");
    command.Hide();
    command.Add("FOLDER", folder.get(), "the folder share/ to write them into").Required();
    command.OnCall([=, &line] { *action = [folder, &line] { WriteSharedFiles(*folder, line.Describe()); }; });
}

}  // namespace tremolux
