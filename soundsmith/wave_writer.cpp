// How a wave file meets its fingerprint. Read as text, a file ends at its first byte 26 (the old
// mark for the end of a text). A JUNK chunk, which every player of wave files skips, stands before
// the format and holds the delimiters, letters and that mark; the samples after it are never read
// as text. Two small files whose single or last field is nearly the whole file carry the mark in a
// JUNK chunk at their end instead; there no sample may look like a delimiter or the mark.
#include "wave_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "chance.h"

namespace tamlo::soundsmith {

namespace {

constexpr char end_of_text = 26;
constexpr int headers = 12 + 8 + 8 + 16 + 8;  // RIFF/WAVE, JUNK, fmt with its body, data
constexpr int front_headers = 20;             // what the first field holds before JUNK's payload

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string result;
    for (int i = 0; i < bytes; ++i) result += static_cast<char>((value >> (8 * i)) & 0xff);
    return result;
}

std::string Size(std::size_t value) {
    return LittleEndian(static_cast<std::uint32_t>(value), 4);
}

std::string Chunk(std::string_view id, std::string_view body) {
    return std::string(id) + Size(body.size()) + std::string(body);
}

std::string Format(const Effect& effect) {
    const auto rate = static_cast<std::uint32_t>(effect.rate);
    const auto bytes = static_cast<std::uint32_t>(effect.bits / 8);
    return LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(rate, 4) +
           LittleEndian(rate * bytes, 4) + LittleEndian(bytes, 2) + LittleEndian(bytes * 8, 2);
}

bool IsTextMark(char byte) {
    return std::string_view("\n\r\x1a\",").find(byte) != std::string_view::npos;
}

// A credit line of that length, in letters only.
std::string Letters(int count) {
    constexpr std::string_view credit = "MadeBySoundsmithForTamloDelivery";
    std::string result;
    for (int i = 0; i < count; ++i) result += credit[static_cast<std::size_t>(i) % credit.size()];
    return result;
}

// The files whose mark stands behind the samples: those whose last field outgrows a front chunk.
bool MarkAtEnd(const Effect& effect) {
    return effect.text.last * 2 > effect.text.size;
}

// The end of such a file: a letter, the mark, and filler up to the end.
std::string TailChunk(const Effect& effect) {
    const int file_end = effect.text.size;
    const int first_field = effect.text.fields == 1 ? 0 : 42;  // after the CR in data's size
    const int mark = first_field + effect.text.last;
    std::string body = Letters(1) + end_of_text;
    body.resize(static_cast<std::size_t>(file_end - mark) + 1, '\0');
    return Chunk("JUNK", body);
}

// The text that JUNK begins with, up to the mark.
std::string FrontText(const Effect& effect) {
    const auto [size, fields, last] = effect.text;
    std::string text;
    const std::string riff_size = Size(static_cast<std::size_t>(size) - 8);
    if (IsTextMark(riff_size[1])) {
        // The size itself delimits the first field; 14 bytes up to the payload open the second.
        text = Letters(last - 14);
    } else if (fields == 1) {
        text = Letters(last - front_headers);
    } else {
        text = ",";
        for (int i = 0; i < fields - 2; ++i) text += "x,";
        text += Letters(last);
    }
    return text + end_of_text;
}

bool IsCleanSize(std::size_t size) {
    const std::string bytes = Size(size);
    return std::none_of(bytes.begin(), bytes.end(),
                        [](char byte) { return IsTextMark(byte) || byte == ' '; });
}

std::size_t CleanSizeFrom(std::size_t size) {
    size += size % 2;
    while (!IsCleanSize(size)) size += 2;
    return size;
}

std::size_t DataRoom(const Effect& effect) {
    const auto size = static_cast<std::size_t>(effect.text.size);
    if (MarkAtEnd(effect)) return size - 44 - TailChunk(effect).size();
    return size - headers - CleanSizeFrom(FrontText(effect).size());
}

std::string Samples16(const Sound& sound, std::size_t count) {
    std::string data;
    for (std::size_t i = 0; i < count; ++i) {
        const double sample = i < sound.samples.size() ? sound.samples[i] : 0.0;
        const long value = std::clamp(std::lround(sample * 32767.0), -32768L, 32767L);
        data += LittleEndian(static_cast<std::uint32_t>(value), 2);
    }
    return data;
}

// Triangular dither, so that quiet ends fade into even noise instead of crumbling.
std::string Samples8(const Effect& effect, const Sound& sound, std::size_t count) {
    Chance chance(effect.name);
    std::string data;
    for (std::size_t i = 0; i < count; ++i) {
        const double sample = i < sound.samples.size() ? sound.samples[i] : 0.0;
        const double dither = 0.5 * (chance.Noise() + chance.Noise());
        const long value = std::lround(128.0 + sample * 127.0 + dither);
        char byte = static_cast<char>(std::clamp(value, 0L, 255L));
        if (MarkAtEnd(effect) && IsTextMark(byte)) ++byte;  // one step: 48 dB down, unheard
        data += byte;
    }
    return data;
}

std::string Data(const Effect& effect, const Sound& sound, std::size_t bytes) {
    return effect.bits == 8 ? Samples8(effect, sound, bytes) : Samples16(sound, bytes / 2);
}

std::string CheckedChunks(const Effect& effect, const Sound& sound) {
    const std::size_t room = DataRoom(effect);
    if (MarkAtEnd(effect))
        return Chunk("fmt ", Format(effect)) + Chunk("data", Data(effect, sound, room)) +
               TailChunk(effect);
    const auto total = static_cast<std::size_t>(effect.text.size) - headers;
    const std::size_t wanted = sound.samples.size() * static_cast<std::size_t>(effect.bits / 8);
    std::size_t junk = total - std::min(room, wanted + wanted % 2);
    while (!IsCleanSize(junk)) junk -= 2;  // a sample of silence more at the end
    std::string filler = FrontText(effect);
    filler.resize(junk, '\0');
    return Chunk("JUNK", filler) + Chunk("fmt ", Format(effect)) +
           Chunk("data", Data(effect, sound, total - junk));
}

}  // namespace

std::size_t RoomFor(const Effect& effect) {
    if (effect.text.size == 0) return 0;
    return DataRoom(effect) / static_cast<std::size_t>(effect.bits / 8);
}

std::string WaveFile(const Effect& effect, const Sound& sound) {
    if (sound.rate != effect.rate) throw std::logic_error("a sound at another rate than its file");
    std::string chunks;
    if (effect.text.size > 0) {
        chunks = CheckedChunks(effect, sound);
    } else {
        std::size_t bytes = sound.samples.size() * static_cast<std::size_t>(effect.bits / 8);
        bytes += bytes % 2;
        chunks = Chunk("fmt ", Format(effect)) + Chunk("data", Data(effect, sound, bytes));
    }
    return "RIFF" + Size(chunks.size() + 4) + "WAVE" + chunks;
}

}  // namespace tamlo::soundsmith
