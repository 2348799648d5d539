#include "engine/hosts/qt/VoiceIdentity.h"
#include <QString>
#include <QUuid>
#include <algorithm>
#include <array>

namespace engine {
namespace {

// The program's own namespace of voice identifiers.
constexpr QUuid VoiceNamespace(0x6f1d3c52, 0x8a4b, 0x4d0e, 0xb7, 0x21, 0x5e, 0x93, 0xc0, 0x4a, 0x1f, 0x68);

struct Language {
    std::string_view tag;
    std::uint16_t id;
};

// In the order of the tags, for searching.
constexpr std::array<Language, 106> Languages{{
    {"af", 0x0436},    {"am", 0x045E},     {"ar", 0x0401},    {"as", 0x044D},    {"az", 0x042C}, {"ba", 0x046D},
    {"be", 0x0423},    {"bg", 0x0402},     {"bn", 0x0445},    {"bs", 0x141A},    {"ca", 0x0403}, {"chr", 0x045C},
    {"cmn", 0x0804},   {"cs", 0x0405},     {"cy", 0x0452},    {"da", 0x0406},    {"de", 0x0407}, {"el", 0x0408},
    {"en", 0x0409},    {"en-029", 0x2409}, {"en-gb", 0x0809}, {"en-us", 0x0409}, {"es", 0x0C0A}, {"es-419", 0x580A},
    {"es-mx", 0x080A}, {"et", 0x0425},     {"eu", 0x042D},    {"fa", 0x0429},    {"fi", 0x040B}, {"fr", 0x040C},
    {"fr-be", 0x080C}, {"fr-ch", 0x100C},  {"ga", 0x083C},    {"gd", 0x0491},    {"gn", 0x0474}, {"gu", 0x0447},
    {"hak", 0x0804},   {"haw", 0x0475},    {"he", 0x040D},    {"hi", 0x0439},    {"hr", 0x041A}, {"hu", 0x040E},
    {"hy", 0x042B},    {"hyw", 0x042B},    {"id", 0x0421},    {"is", 0x040F},    {"it", 0x0410}, {"ja", 0x0411},
    {"ka", 0x0437},    {"kk", 0x043F},     {"kl", 0x046F},    {"kn", 0x044B},    {"ko", 0x0412}, {"kok", 0x0457},
    {"ku", 0x0492},    {"ky", 0x0440},     {"la", 0x0476},    {"lb", 0x046E},    {"lt", 0x0427}, {"ltg", 0x0426},
    {"lv", 0x0426},    {"mi", 0x0481},     {"mk", 0x042F},    {"ml", 0x044C},    {"mr", 0x044E}, {"ms", 0x043E},
    {"mt", 0x043A},    {"my", 0x0455},     {"nb", 0x0414},    {"ne", 0x0461},    {"nl", 0x0413}, {"no", 0x0414},
    {"om", 0x0472},    {"or", 0x0448},     {"pa", 0x0446},    {"pap", 0x0479},   {"pl", 0x0415}, {"pt", 0x0816},
    {"pt-br", 0x0416}, {"qu", 0x046B},     {"quc", 0x0486},   {"ro", 0x0418},    {"ru", 0x0419}, {"sd", 0x0859},
    {"si", 0x045B},    {"sk", 0x041B},     {"sl", 0x0424},    {"smj", 0x143B},   {"sq", 0x041C}, {"sr", 0x0C1A},
    {"sv", 0x041D},    {"sw", 0x0441},     {"ta", 0x0449},    {"te", 0x044A},    {"th", 0x041E}, {"tk", 0x0442},
    {"tn", 0x0432},    {"tr", 0x041F},     {"tt", 0x0444},    {"ug", 0x0480},    {"uk", 0x0422}, {"ur", 0x0420},
    {"uz", 0x0443},    {"vi", 0x042A},     {"yue", 0x0C04},   {"zh", 0x0804},
}};

std::uint16_t LanguageIdOfExactTag(std::string_view tag)
{
    const auto found =
        std::lower_bound(Languages.begin(), Languages.end(), tag,
                         [](const Language& language, std::string_view wanted) { return language.tag < wanted; });
    return found != Languages.end() && found->tag == tag ? found->id : std::uint16_t{0};
}

}

std::string ModeIdOfVoice(std::string_view name)
{
    const auto bytes = QByteArray(name.data(), static_cast<qsizetype>(name.size()));
    return QUuid::createUuidV5(VoiceNamespace, bytes).toString().toUpper().toStdString();
}

std::uint16_t LanguageIdOfTag(std::string_view tag)
{
    while (!tag.empty()) {
        if (const std::uint16_t id = LanguageIdOfExactTag(tag))
            return id;
        const std::size_t dash = tag.rfind('-');
        tag = tag.substr(0, dash == std::string_view::npos ? 0 : dash);
    }
    return 0;
}

}
