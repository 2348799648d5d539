#pragma once
#include <QFile>
#include <cstdint>
#include <string>
#include <vector>

namespace engine {

// A WAVE file, mono, 16 bits, 22050 samples a second, that is valid after every call. Stretches that sound at the same
// time are mixed; the silence between others is left out.
class CWavRecorder {
public:
    static constexpr std::int32_t SampleRate = 22050;

    // Replaces the file. Usable() is false when it cannot be written.
    explicit CWavRecorder(const std::string& file);
    bool Usable() const { return m_file.isOpen(); }

    // A new stretch starts to sound: where in the file. It begins where the youngest stretch still sounding has come to.
    std::int64_t BeginStretch();
    void EndStretch() { --m_sounding; }
    // Mixes samples into the file at a place counted in samples.
    void Mix(std::int64_t place, const std::vector<std::int16_t>& samples);

private:
    void WriteHeader();

    QFile m_file;
    std::int64_t m_length = 0;  // Samples.
    std::int64_t m_now = 0;     // Where the last samples were written.
    int m_sounding = 0;
};

}
