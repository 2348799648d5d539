#pragma once
#include "engine/hosts/qt/ClockOutput.h"
#include "engine/hosts/qt/WavRecorder.h"
#include <memory>

namespace engine {

// The clock, and what it has played goes into a recording. The recording follows whenever the position is asked for, and
// when the stream ends.
class CRecordedOutput final : public ISoundOutput {
public:
    explicit CRecordedOutput(std::shared_ptr<CWavRecorder> recorder) : m_recorder(std::move(recorder)) {}
    ~CRecordedOutput() override { Finish(); }
    CRecordedOutput(const CRecordedOutput&) = delete;
    CRecordedOutput& operator=(const CRecordedOutput&) = delete;
    void Begin(std::int32_t sampleRate) override;
    void Write(const std::vector<std::int16_t>& samples) override;
    void End() override { m_ended = true; }
    void Stop() override;
    std::int64_t Position() const override;

private:
    void RecordUpTo(std::int64_t position) const;
    void Finish();

    std::shared_ptr<CWavRecorder> m_recorder;
    CClockOutput m_clock;
    std::int32_t m_rate = CWavRecorder::SampleRate;
    bool m_ended = false;
    mutable std::vector<std::int16_t> m_unheard;
    mutable std::int64_t m_recorded = 0;  // Samples of the stream.
    std::int64_t m_place = 0;             // Where the stretch begins in the recording.
    mutable bool m_sounding = false;
};

}
