#include "engine/hosts/qt/WavRecorder.h"
#include <QtEndian>
#include <algorithm>
#include <limits>

namespace engine {
namespace {

constexpr qint64 HeaderSize = 44;
constexpr qint64 BytesPerSample = 2;

template <class Number> void Append(QByteArray& bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

std::int16_t Sum(std::int16_t one, std::int16_t other)
{
    return static_cast<std::int16_t>(std::clamp(one + other, -32768, 32767));
}

}

CWavRecorder::CWavRecorder(const std::string& file) : m_file(QString::fromStdString(file))
{
    if (m_file.open(QIODevice::ReadWrite | QIODevice::Truncate))
        WriteHeader();
}

std::int64_t CWavRecorder::BeginStretch()
{
    if (m_sounding++ == 0)
        m_now = m_length;
    return m_now;
}

void CWavRecorder::Mix(std::int64_t place, const std::vector<std::int16_t>& samples)
{
    if (!Usable() || samples.empty())
        return;
    const qint64 at = HeaderSize + place * BytesPerSample;
    m_file.seek(at);
    std::vector<std::int16_t> mixed(samples.size());
    m_file.read(reinterpret_cast<char*>(mixed.data()), static_cast<qint64>(mixed.size()) * BytesPerSample);
    std::transform(mixed.begin(), mixed.end(), samples.begin(), mixed.begin(), Sum);
    m_file.seek(at);
    m_file.write(reinterpret_cast<const char*>(mixed.data()), static_cast<qint64>(mixed.size()) * BytesPerSample);
    m_now = place + static_cast<std::int64_t>(samples.size());
    m_length = std::max(m_length, m_now);
    WriteHeader();
}

void CWavRecorder::WriteHeader()
{
    const auto data = static_cast<quint32>(
        std::min<std::int64_t>(m_length * BytesPerSample, std::numeric_limits<quint32>::max() - HeaderSize));
    QByteArray header("RIFF");
    Append<quint32>(header, data + static_cast<quint32>(HeaderSize) - 8);
    header.append("WAVEfmt ");
    Append<quint32>(header, 16);
    Append<quint16>(header, 1);
    Append<quint16>(header, 1);
    Append<quint32>(header, SampleRate);
    Append<quint32>(header, SampleRate * static_cast<quint32>(BytesPerSample));
    Append<quint16>(header, static_cast<quint16>(BytesPerSample));
    Append<quint16>(header, 16);
    header.append("data");
    Append<quint32>(header, data);
    m_file.seek(0);
    m_file.write(header);
    m_file.flush();
}

}
