#include "engine/files/AcsBlockWriter.h"
#include "base/text/Case.h"
#include <algorithm>

namespace engine::files {
namespace {

class CAcsBlockWriter {
public:
    CAcsBlockWriter(const Character& character, CByteWriter& writer) : m_character(character), m_writer(writer) {}

    Locator Run()
    {
        const std::uint32_t start = m_writer.Offset();
        m_writer.U16(MinorVersion);
        m_writer.U16(MajorVersion);
        m_writer.Place({});  // Of the names, patched below.
        m_writer.Bytes(m_character.id);
        WriteLook();
        if (m_character.voice)
            WriteVoice(*m_character.voice);
        if (m_character.balloon)
            WriteBalloon(*m_character.balloon);
        WritePalette();
        m_writer.U8(0);  // No tray icon.
        WriteStates();
        m_writer.PatchPlace(start + 4, WriteNames());
        return m_writer.Since(start);
    }

private:
    template <class List> void Count16(const List& list) { m_writer.U16(static_cast<std::uint16_t>(list.size())); }

    void WriteLook()
    {
        m_writer.U16(static_cast<std::uint16_t>(m_character.frameSize.width));
        m_writer.U16(static_cast<std::uint16_t>(m_character.frameSize.height));
        m_writer.U8(m_character.transparentIndex);
        m_writer.U32(Flags());
        m_writer.U16(2);  // Version of the animation set: 2.0.
        m_writer.U16(0);
    }

    std::uint32_t Flags() const
    {
        std::uint32_t flags = m_character.voice ? VoiceFlag : NoVoiceFlag;
        flags |= m_character.balloon ? BalloonFlag : NoBalloonFlag;
        flags |= m_character.hasStandardSet ? StandardSetFlag : 0;
        if (!m_character.balloon)
            return flags;
        flags |= m_character.balloon->sizeToText ? SizeToTextFlag : 0;
        flags |= m_character.balloon->autoHide ? 0 : NoAutoHideFlag;
        flags |= m_character.balloon->autoPace ? 0 : NoAutoPaceFlag;
        return flags;
    }

    void WriteVoice(const VoiceHints& voice)
    {
        m_writer.Bytes(voice.engineId);
        m_writer.Bytes(voice.modeId);
        m_writer.U32(voice.wordsPerMinute.value_or(EngineDefaultSpeed));
        m_writer.U16(voice.pitch.value_or(EngineDefaultPitch));
        m_writer.U8(1);  // The language and the kind of voice follow.
        m_writer.U16(voice.languageId);
        m_writer.String("");  // Dialect.
        m_writer.U16(voice.gender);
        m_writer.U16(voice.age);
        m_writer.String("");  // Style.
    }

    void WriteBalloon(const BalloonLook& balloon)
    {
        m_writer.U8(balloon.lines);
        m_writer.U8(balloon.charsPerLine);
        for (const Color& color : {balloon.text, balloon.background, balloon.border})
            m_writer.Bytes(std::array<std::uint8_t, 4>{color.red, color.green, color.blue, 0});
        m_writer.String(balloon.fontName);
        m_writer.I32(balloon.fontHeight);
        m_writer.U32(balloon.bold ? BoldWeight : NormalWeight);
        m_writer.U8(balloon.italic ? 1 : 0);
        m_writer.U8(0);
    }

    // Unlike the colours of the balloon these start with blue.
    void WritePalette()
    {
        m_writer.U32(static_cast<std::uint32_t>(m_character.palette.size()));
        for (const Color& color : m_character.palette)
            m_writer.Bytes(std::array<std::uint8_t, 4>{color.blue, color.green, color.red, 0});
    }

    void WriteStates()
    {
        Count16(m_character.states);
        for (const State& state : m_character.states) {
            m_writer.String(text::Upper(state.name));
            Count16(state.animations);
            for (const std::string& animation : state.animations)
                m_writer.String(text::Upper(animation));
        }
    }

    Locator WriteNames()
    {
        const std::uint32_t start = m_writer.Offset();
        std::vector<LocalizedName> names = m_character.names;
        if (std::none_of(names.begin(), names.end(), [](const LocalizedName& n) { return n.languageId == EnglishId; })) {
            names.push_back(names.front());
            names.back().languageId = EnglishId;
        }
        Count16(names);
        for (const LocalizedName& name : names) {
            m_writer.U16(name.languageId);
            m_writer.String(name.name);
            m_writer.String(name.description);
            m_writer.String(name.extraData);
        }
        return m_writer.Since(start);
    }

    const Character& m_character;
    CByteWriter& m_writer;
};

}

Locator WriteBlock(const Character& character, CByteWriter& writer) { return CAcsBlockWriter(character, writer).Run(); }

}
