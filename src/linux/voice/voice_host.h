// Speech libraries run in processes of their own: one that crashes, hangs or spoils its memory
// takes nothing else with it.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <vector>

#include "audio/voice/synthesizer.h"
#include "linux/system/descriptor.h"

namespace tamlo {

/// A small process, forked before any thread exists, from which speaker processes are forked when
/// they are needed. All of them end with the process that made it.
class VoiceHost {
  public:
    /// `makers`: one for each family of voices. To be made while this process has one thread.
    explicit VoiceHost(const std::vector<SynthesizerMaker>& makers);
    VoiceHost(const VoiceHost&) = delete;
    VoiceHost& operator=(const VoiceHost&) = delete;
    ~VoiceHost();

    /// False if it could not be made, or has gone: then no speaker can be started.
    bool Running();

    /// A speaker process, known by its number, and the socket to it (see speaker_messages.h).
    struct Speaker {
        Descriptor socket;
        int number = 0;
    };
    /// Starts one for a family. An empty socket if that failed. Any thread may call this.
    Speaker Start(int family);
    /// Kills a speaker, whether or not it still runs. Any thread may call this.
    void Kill(int number);

  private:
    std::mutex mutex_;
    Descriptor control_;
    pid_t process_ = -1;
    int last_number_ = 0;
};

}  // namespace tamlo
