#include "web/page/page_keeper.h"

#include "web/page/page_calls.h"

namespace tamlo {

bool PageKeeper::Keep(const std::vector<Change>& changes) {
    std::vector<PageFile> files;
    for (const Change& change : changes) {
        PageFile file{.name = change.name.c_str()};
        if (change.bytes) {
            file.bytes = change.bytes->data();
            file.size = static_cast<std::uint32_t>(change.bytes->size());
        }
        files.push_back(file);
    }
    PageAnswer answer{0};
    tamlo_page_keep(files.data(), static_cast<int>(files.size()), &answer);
    return AwaitAnswer(answer) == answer_yes;
}

}  // namespace tamlo
