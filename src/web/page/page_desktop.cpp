#include "web/page/page_desktop.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "web/page/page_calls.h"

namespace tamlo {

PageDesktop::PageDesktop(Speech& voice, KeptFiles& files, std::function<bool()> speaks,
                         std::function<void()> beep)
    : voice_(voice), files_(files), speaks_(std::move(speaks)), beep_(std::move(beep)) {}

std::string PageDesktop::SpecialFolder(int number) {
    return number == documents_folder ? documents_path : "";
}

void PageDesktop::MessageBox(const std::string& text) {
    const std::unique_ptr<SpeechEngine> engine = voice_.CreateEngine();
    const bool speaks = engine->GetVoicesCount() > 0 && speaks_();
    if (speaks) engine->Speak(text, SpeakFlags::queue);
    PageAnswer answer{0};
    tamlo_page_message(::strdup(text.c_str()), speaks ? 1 : 0, &answer);
    AwaitAnswer(answer);
}

bool PageDesktop::StartEditor(const std::string& path) {
    const ReadResult file = files_.Read(path);
    if (file.outcome != ReadResult::Outcome::ok) return false;
    const std::size_t size = file.bytes.size();
    char* const copy = static_cast<char*>(std::malloc(size + 1));
    if (copy == nullptr) return false;
    std::memcpy(copy, file.bytes.data(), size);
    const std::string name = path.substr(path.rfind('/') + 1);
    tamlo_page_edit(::strdup(name.c_str()), copy, static_cast<std::uint32_t>(size));
    return true;
}

bool PageDesktop::StartLauncher(const std::string& /*path*/) {
    return false;
}

}  // namespace tamlo
