// The workshop: what is due, two threads that make it, and the stamps that remember it.
#include "workshop.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "finish.h"
#include "recipes.h"
#include "wave_writer.h"

namespace tamlo::soundsmith {

namespace {

namespace fs = std::filesystem;

constexpr int thread_count = 2;
constexpr std::string_view stamp_file = ".soundsmith";

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Under another name first: a file of that name is always whole.
void WriteFile(const fs::path& path, const std::string& bytes) {
    const fs::path draft = path.string() + ".new";
    std::ofstream out(draft, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + draft.string());
    fs::rename(draft, path);
}

std::string HashOf(std::string_view bytes) {
    std::uint64_t hash = 0xcbf29ce484222325u;  // FNV-1a
    for (const char byte : bytes) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 0x100000001b3u;
    }
    std::ostringstream text;
    text << std::hex << hash;
    return text.str();
}

fs::path WaveIn(const fs::path& folder, const Effect& effect) {
    return folder / (std::string(effect.name) + ".wav");
}

// How each file of a folder was made, and what it held then. One line a file: name, stamp, hash.
class Stamps {
  public:
    explicit Stamps(fs::path folder) : folder_(std::move(folder)) {
        std::istringstream lines(ReadFile(folder_ / stamp_file));
        std::string name, stamp, hash;
        while (lines >> name >> stamp >> hash) entries_[name] = stamp.append(" ").append(hash);
    }

    bool IsCurrent(const Effect& effect) const {
        const auto entry = entries_.find(effect.name);
        if (entry == entries_.end()) return false;
        const std::string stamp = StampOf(effect) + ' ';
        return entry->second.starts_with(stamp) &&
               entry->second == stamp + HashOf(ReadFile(WaveIn(folder_, effect)));
    }

    void Remember(const Effect& effect, std::string_view bytes) {
        entries_[std::string(effect.name)] = StampOf(effect) + ' ' + HashOf(bytes);
        std::string text;
        for (const auto& [name, entry] : entries_)
            text.append(name).append(" ").append(entry).append("\n");
        WriteFile(folder_ / stamp_file, text);
    }

  private:
    fs::path folder_;
    std::map<std::string, std::string, std::less<>> entries_;
};

// The files with the longest sounds first, so that both threads end together.
void LongestFirst(std::vector<const Effect*>& effects) {
    std::stable_sort(effects.begin(), effects.end(),
                     [](const Effect* a, const Effect* b) { return a->text.size > b->text.size; });
}

}  // namespace

Workshop::Workshop(fs::path folder, fs::path other)
    : folder_(std::move(folder)), other_(std::move(other)) {
    fs::create_directories(folder_);
}

SetResult Workshop::MakeSet(const Progress& progress) {
    Stamps stamps(folder_);
    const Stamps others(other_.empty() ? folder_ : other_);
    SetResult result;
    std::vector<const Effect*> due;
    for (const Effect& effect : Effects()) {
        if (stamps.IsCurrent(effect)) continue;
        if (other_.empty() || !others.IsCurrent(effect)) {
            due.push_back(&effect);
            continue;
        }
        const std::string bytes = ReadFile(WaveIn(other_, effect));
        WriteFile(WaveIn(folder_, effect), bytes);
        stamps.Remember(effect, bytes);
        ++result.taken;
    }
    const SetResult made = Make(due, progress);
    result.made = made.made;
    result.failures = made.failures;
    return result;
}

SetResult Workshop::Make(const std::vector<const Effect*>& effects, const Progress& progress) {
    std::vector<const Effect*> queue = effects;
    LongestFirst(queue);
    Stamps stamps(folder_);
    SetResult result;
    std::mutex mutex;
    std::atomic<std::size_t> next = 0;
    int done = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < queue.size(); i = next++) {
            const Effect& effect = *queue[i];
            try {
                const std::string bytes = WaveFile(effect, MakeSound(effect));
                WriteFile(WaveIn(folder_, effect), bytes);
                const std::lock_guard lock(mutex);
                stamps.Remember(effect, bytes);
                ++result.made;
                if (progress) progress(effect.name, ++done, static_cast<int>(queue.size()));
            } catch (const std::exception& error) {
                const std::lock_guard lock(mutex);
                result.failures.push_back(std::string(effect.name) + ": " + error.what());
            }
        }
    };
    std::vector<std::jthread> threads;
    threads.reserve(thread_count);
    for (int i = 0; i < thread_count; ++i) threads.emplace_back(work);
    threads.clear();  // joins
    return result;
}

}  // namespace tamlo::soundsmith
