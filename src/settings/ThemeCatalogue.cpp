// The compiled-in catalogue of palettes, in the order the theme picker shows them. The first entry
// is the default and stands in for an id the catalogue doesn't know. The tags stay in English here
// and are marked for the translation tables; the picker shows them in the user's language.
#include "settings/ThemeEngine.h"

#include <QStringList>

namespace orvel {

namespace {

// Sixteen colours in token order (window ... info), "RRGGBB" or "RRGGBB/opacity", then the lanes.
ThemeTokens tokens(const char* colours, const char* lanes) {
    const auto colour = [](const QString& text) {
        const QStringList parts = text.split(u'/');
        QColor value = parseThemeColor(parts.front());
        if (parts.size() > 1)
            value.setAlphaF(parts[1].toFloat());
        return value;
    };
    const QStringList values = QString::fromLatin1(colours).split(u' ', Qt::SkipEmptyParts);
    ThemeTokens t;
    QColor* fields[] = {&t.window, &t.panel,  &t.raised,     &t.input,  &t.fg,           &t.fg2,
                        &t.fg3,    &t.stroke, &t.strokeSoft, &t.accent, &t.accentBright, &t.accentText,
                        &t.add,    &t.del,    &t.mod,        &t.info};
    for (int index = 0; index < 16 && index < values.size(); ++index)
        *fields[index] = colour(values[index]);
    for (const QString& lane : QString::fromLatin1(lanes).split(u' ', Qt::SkipEmptyParts))
        t.lanes.push_back(colour(lane));
    return t;
}

OrvelTheme entry(const char* id, const char* name, ThemeCategory category, const char* tag, ThemeTokens dark,
                 ThemeTokens light) {
    return {QString::fromUtf8(id),
            QString::fromUtf8(name),
            category,
            QString::fromUtf8(tag),
            {std::move(dark), std::move(light)}};
}

std::vector<OrvelTheme> makeCatalogue() {
    using enum ThemeCategory;
    return {
        entry("dala", "Dala", signature,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Petrol teal, brushed gold, hairline ornament — the steppe"),
              tokens("0A2B28 0D3632 134541 0A302C EBE1CB B9B19F 8A8472 E9CF82/0.12 E9CF82/0.25 C89A3A D8B155 "
                     "E9CF82 6FBF7A D46A6A D8B155 5DB7C9",
                     "D8B155 2FB3A4 C389FF D46A6A"),
              tokens("F3ECD8 ECE3C9 E2D6B5 F7F0DD 2D2414 5C5134 8A7E58 4F3C14/0.14 4F3C14/0.25 8C6415 A87A25 "
                     "6B4C0F 2F7A3C A63E3E 8C6415 2C6C80",
                     "8C6415 0F6659 6A3AA8 A63E3E")),
        entry("kok-bolat", "Kök Bolat", signature,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Sky steel — brushed pewter, cool phosphor"),
              tokens("12181D 171F26 1F2932 0E1418 DCE6EE A9B6C2 7B8894 B8D4E8/0.12 B8D4E8/0.25 6FA8D6 8CC2EA "
                     "BFE0F7 7FE0B4 E07A7A E0C07A 7FD4E0",
                     "8CC2EA 7FE0B4 B8A9E8 E07A7A"),
              tokens("EEF2F5 E4EAEF D6DEE5 F6F8FA 161D24 43505C 6C7985 1A2A38/0.14 1A2A38/0.25 2F6A99 3C7FB3 "
                     "1F4C70 1F7A52 A83838 8A6A12 1C6F80",
                     "2F6A99 1F7A52 5B4AA0 A83838")),
        entry("aqsaray", "Aqsaray", elegant,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "White palace — champagne on obsidian"),
              tokens("0E0D0C 151412 1E1C19 0A0A09 F2EBDD C2BAAB 8E877A E8D5A8/0.12 E8D5A8/0.25 D4B878 E8D09A "
                     "F2E2BC 8FC79A D98C80 D4B878 9CC0D0",
                     "D4B878 9CC0D0 C7A0C8 D98C80"),
              tokens("FBF8F1 F3EEE3 E8E1D2 FFFDF8 1C1A16 4A463E 7A7366 3A2E14/0.12 3A2E14/0.24 8A6A2A A27E36 "
                     "6A4F1C 2F7245 A4443A 8A6A2A 2E6A82",
                     "8A6A2A 2E6A82 7A4A86 A4443A")),
        entry("shoq", "Shoq", energetic,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Ember — oxy orange, violet core, electric mint"),
              tokens("140E12 1C141A 271C25 100B0E F5E8EC C4B3BB 8F7E88 FF7A2F/0.14 FF7A2F/0.28 FF6A1F FF8A45 "
                     "FFB27F 3DF5B0 FF4D6D FFB020 A98BFF",
                     "FF6A1F A98BFF 3DF5B0 FF4D6D"),
              tokens("FFF6F0 FBEBE1 F4DCCD FFFBF8 22140E 553A2E 86695C 5A2A10/0.14 5A2A10/0.26 C24A00 DB5C0A "
                     "8A3300 007A55 B8143A 9A6200 5B3BC4",
                     "C24A00 5B3BC4 007A55 B8143A")),
        entry("koshpendi", "Köshpendi", nomad,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Nomad — felt ochre, horizon blue, herb green"),
              tokens("1A1610 221D15 2D261C 15120D EDE3CF BCB09A 8C8270 D9A441/0.12 D9A441/0.25 D9A441 E8BA5E "
                     "F2D393 8FBF6A D9735A D9A441 6FA8D0",
                     "D9A441 6FA8D0 8FBF6A C98FBF"),
              tokens("F6F0E2 EEE5D2 E3D7BE FBF7EE 2A2216 584B36 857760 4A3410/0.14 4A3410/0.25 94650F AD7A1F "
                     "6A470A 3F6E24 A4432E 94650F 2A5F8A",
                     "94650F 2A5F8A 3F6E24 7E3F72")),
        entry("qaghaz", "Qaghaz", archival,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Paper — ink, foxed vellum, library lamp"),
              tokens("1B1914 23201A 2D2921 16140F E8E0CC B5AC97 878069 E8D3A0/0.12 E8D3A0/0.24 E0B55A F0C977 "
                     "F5DDA3 98B872 C9705E E0B55A 8FA8B8",
                     "E0B55A 8FA8B8 98B872 C9705E"),
              tokens("F4ECD8 EBE1C8 DFD2B3 F9F3E4 1E1A12 4A4231 7A705A 2E2414/0.16 2E2414/0.28 7A4E12 94621E "
                     "5A380A 3E6A2A 9A3426 7A4E12 334E66",
                     "7A4E12 334E66 3E6A2A 9A3426")),
        entry("jailau", "Jaılau", casual,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Summer pasture — oat, driftwood, sage"),
              tokens("171815 1E201B 282A24 121310 E6E4D8 B4B2A4 878676 C8C6A8/0.12 C8C6A8/0.24 9DB88A B4CCA0 "
                     "D4E2C4 9DC98A D08A7A D4B87A 8AB4C0",
                     "9DB88A 8AB4C0 D4B87A C09AB0"),
              tokens("F5F2E8 ECE8DA E0DAC8 FAF8F1 24231C 524F42 807C6A 3A3624/0.14 3A3624/0.25 4F6B3A 617F48 "
                     "3A5129 3F6E2A A0483A 8A6420 3A6878",
                     "4F6B3A 3A6878 8A6420 7A4A68")),
        entry("tugel", "Tügel", colorful,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Complete — saturated full spectrum"),
              tokens("0F1016 161722 1F2130 0B0C11 F0F0F8 B8B9CC 85879E 8C8FFF/0.14 8C8FFF/0.28 5B6BFF 7A88FF "
                     "A9B3FF 22E07A FF3B5C FFB800 00C8FF",
                     "FF3B5C FFB800 22E07A 00C8FF"),
              tokens("F7F7FC EEEEF8 E2E2F2 FFFFFF 12131C 41435A 6E7190 1C1E4A/0.12 1C1E4A/0.24 3340E0 4A57F0 "
                     "1F28A8 00874A D0103A A86A00 0078B0",
                     "D0103A A86A00 00874A 0078B0")),
        entry("koke", "Köke", morandi,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Pale sky — chalk blue, dove grey, faded plaster"),
              tokens("171A1E 1D2126 262B31 13161A E2E6EA B0B7BF 838B94 B4C4D4/0.12 B4C4D4/0.24 9AB2CC B2C6DA "
                     "CFDCE8 A3C2A8 CFA3A3 D4C4A0 A8C4D4",
                     "9AB2CC A3C2A8 C4B0CC CFA3A3"),
              tokens("F1F3F4 E8EBED DCE0E3 F8F9FA 272C31 525A62 7D858D 2A3440/0.12 2A3440/0.22 4F6A86 5E7C9A "
                     "3A5068 4A6E52 8C4A4A 7A6A3E 4A6878",
                     "4F6A86 4A6E52 6E5A80 8C4A4A")),
        entry("sarsyn", "Sarsyn", morandi,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Dusty olive — sage, pear-bloom, faded eucalyptus"),
              tokens("181A16 1F221C 292D25 141612 E4E6DC B2B6A6 858A78 BCC4A4/0.12 BCC4A4/0.24 A8B48A C0CAA2 "
                     "DAE0C6 9CC0A0 CC9C94 CCC08C 9CBCBC",
                     "A8B48A 9CBCBC CCC08C C4A0B4"),
              tokens("F3F3EC EAEBE1 DEE0D2 F9F9F4 262820 53574A 7F8472 30361E/0.13 30361E/0.24 5E6A3A 707E46 "
                     "434C28 466E4C 8E4A42 7A6C2E 3E6A6A",
                     "5E6A3A 3E6A6A 7A6C2E 6E4A62")),
        entry("aiqyn", "Aiqyn", accessibility,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Clear, distinct — WCAG AAA reference"),
              tokens("0D1012 14181B 1D2328 0A0D0F FFF6DE D9D2BE A49D89 FFF6DE/0.22 FFF6DE/0.4 FFD03A FFE270 "
                     "FFF2A0 72FF9A FF7A7A FFD03A 6BD9FF",
                     "FFD03A 6BD9FF FF9CFF FF7A7A"),
              tokens("FAF6EA F0EAD6 E4DCC0 FDFAEF 0D0C08 3A3728 6B6651 0D0C08/0.22 0D0C08/0.4 5A3B00 744E04 "
                     "3E2900 00562C 8B1515 5A3B00 003F60",
                     "5A3B00 003F60 4A0E74 8B1515")),
        entry("qara", "Qara Saksaýyl", inspiredKara,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Qara Saksaýyl — black saxaul. Dusk dunes, desert wood."),
              tokens("16110E 1E1713 291F19 120D0B EDDFD0 BCAA98 8C7A6A D9A27A/0.12 D9A27A/0.25 D08A5A E2A276 "
                     "F0C4A2 A6B46E D0645A E0B060 8AA6B8",
                     "D08A5A 8AA6B8 A6B46E B48AAE"),
              tokens("F6EEE4 EEE2D4 E2D2BF FBF6EF 2A1E16 5A4536 8A7260 4A2A14/0.14 4A2A14/0.25 944E22 AE622E "
                     "6C3814 5A6A26 A2382E 8E6414 365A70",
                     "944E22 365A70 5A6A26 7A4A74")),
        entry("aq-kyzyl", "Aq-Qyzyl", inspiredAkh,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Aq-Qyzyl — white & red. Kiln-fired earthenware."),
              tokens("1A1010 231515 2E1C1B 150C0C F4E6E0 C8B0A8 967E76 E8A898/0.12 E8A898/0.25 D9483A EB6656 "
                     "F7A898 9CC48A FF6A5A E0A85A A8B4D0",
                     "D9483A E0A85A 9CC48A A8B4D0"),
              tokens("FAF5F2 F3EAE5 E8DAD2 FFFBF9 2A1512 5C3C36 8C6A62 4A1A12/0.13 4A1A12/0.24 B3261A C83A2C "
                     "8A1C12 3E6E2E 9C1C30 946014 4E5A78",
                     "B3261A 946014 3E6E2E 4E5A78")),
        entry("janar", "Janar", inspiredEva01,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Janar — glowing, radiant. LCL violet, radiant green."),
              tokens("130E1C 1A1426 241B34 0E0A15 ECE4F8 B8ACD0 8A7EA4 9B6BFF/0.14 9B6BFF/0.28 8B5CF6 A57CFF "
                     "C9B0FF 7CFF4F FF5C7A FF9E3D 5CE1E6",
                     "8B5CF6 7CFF4F FF9E3D 5CE1E6"),
              tokens("F6F2FC EDE6F8 E0D6F2 FCFAFF 1A1226 46385E 74668E 2A1450/0.13 2A1450/0.24 5B2FC2 6E40DA "
                     "40208C 2E7A0E B0203E A85A00 007A80",
                     "5B2FC2 2E7A0E A85A00 007A80")),
        entry("altyn-zhol", "Altyn Jol", inspiredGithub,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Altyn Jol — golden road. Blueprint cobalt, canvas off-white."),
              tokens("0D1320 121A2B 1A2438 0A0F19 E6ECF5 A8B4C8 7886A0 9DB8E8/0.12 9DB8E8/0.25 3D7BE0 5A94F0 "
                     "A6C8FF 4FC87A F0645A E8B840 5AB4E8",
                     "3D7BE0 E8B840 4FC87A F0645A"),
              tokens("F7F6F1 EFEDE5 E3E0D4 FFFFFF 16202E 43506A 6E7A90 15254A/0.13 15254A/0.24 1F4FB4 2A62D0 "
                     "163A86 1A7F37 CF222E 9A6700 0969DA",
                     "1F4FB4 9A6700 1A7F37 CF222E")),
        entry("tun-perde", "Tün Perde", surprise,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Tün Perde — night veil. Noir indigo, silk moon."),
              tokens("0C0B16 12111F 1A182C 09080F E6E4F2 AEABC8 7E7A9C C8C4E8/0.12 C8C4E8/0.24 7C74D8 9A92EC "
                     "D8D4F4 86C8A0 E07A92 E0C884 8CB0E8",
                     "7C74D8 E0C884 86C8A0 E07A92"),
              tokens("F4F3F9 EAE8F3 DCD9EB FAF9FD 16142A 413E62 6C688E 1C1840/0.13 1C1840/0.24 3F36A8 5048C0 "
                     "2C2478 2E6E4A A0304E 7E6420 2E4E96",
                     "3F36A8 7E6420 2E6E4A A0304E")),
        entry("kun-dala", "Kün Dala", surprise,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Kün Dala — sun steppe. Copper sun, kelp, horizon."),
              tokens("14130F 1C1A14 26231B 100F0B F0E6D4 BEB29C 8C826E E8A060/0.12 E8A060/0.25 D9783A EE9456 "
                     "F6C09A 6FB88A E0645A E8C050 6AAED8",
                     "D9783A 6FB88A 6AAED8 E8C050"),
              tokens("F8F2E8 F0E8D8 E4D8C2 FCF9F2 241E14 54493A 847862 4A2C10/0.14 4A2C10/0.25 A4501A BE6226 "
                     "74380E 2E6A44 A8302A 8A6410 28608A",
                     "A4501A 2E6A44 28608A 8A6410")),
        entry("rx78", "RX-78", mecha,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "RX-78 — Federation livery. Ivory plating, core red, thruster yellow."),
              tokens("12141A 191C24 22262F 0E1014 F4F1E6 C2BFB2 8E8B80 F4F1E6/0.12 F4F1E6/0.25 E0303A F24C54 "
                     "FFB4B4 5AC878 FF5A4A FFCC1A 4A88E8",
                     "E0303A FFCC1A 4A88E8 5AC878"),
              tokens("F7F5EE EFECE2 E3DFD2 FFFEFA 181A20 464852 74767E 1A1C24/0.13 1A1C24/0.24 C01C26 D62C34 "
                     "8A1018 2A7040 B01E1E 9A7200 1E4EB0",
                     "C01C26 9A7200 1E4EB0 2A7040")),
        entry("zeon", "Zeon", mecha,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Zeon — Char's crimson. Three times faster."),
              tokens("160D0F 1F1214 2A181B 110A0B F2E2E2 C4A8AA 947A7C E85A6A/0.13 E85A6A/0.26 D02040 E83A58 "
                     "FF9CAC 7AC48A FF4A4A E0A040 8A9CC8",
                     "D02040 E0A040 8A9CC8 7AC48A"),
              tokens("FAF2F3 F2E6E8 E8D6DA FFF9FA 2A1216 5E3A40 8E6A70 4A1018/0.13 4A1018/0.24 A8102E C01E3C "
                     "7A0A20 2E6A3C B01A1A 8E5E10 4A5A8A",
                     "A8102E 8E5E10 4A5A8A 2E6A3C")),
        entry("neo-almaty", "Neo Almaty", cyberpunk,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Neo Almaty — cyberpunk city. Hot magenta, cyan neon, midnight slab."),
              tokens("0A0814 11101F 1A1830 06050D E8E0FF 9A90C4 655C87 E8E0FF/0.1 E8E0FF/0.24 FF2BD6 FF5CE0 "
                     "FF8DE8 3CFFBC FF3864 FFCF3A 0AFCFF",
                     "FF2BD6 0AFCFF FFCF3A 3CFFBC"),
              tokens("F3EEFC E8E1F5 DAD1ED FAF7FE 0F0820 3F325A 6E5F88 0F0820/0.1 0F0820/0.22 A6009A C40AB6 "
                     "76006D 007A5A B00038 8A6200 00668A",
                     "A6009A 00668A 8A6200 007A5A")),
        entry("fluor", "Fluor", accessibility,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Fluor — fluorescent high-contrast. Neon markers on pitch."),
              tokens("000000 0A0A0A 161616 050505 FFFFFF E0E0E0 B0B0B0 FFFFFF/0.24 FFFFFF/0.45 CCFF00 E0FF4D "
                     "F2FF99 00FF7F FF2E63 FFE600 00E5FF",
                     "CCFF00 00E5FF FF4FD8 FF2E63"),
              tokens("FFFFFF F5F5F5 EBEBEB FFFFFF 000000 1F1F1F 4A4A4A 000000/0.3 000000/0.5 4A6B00 5C8500 "
                     "2E4400 006B34 C0002E 7A6400 005F8A",
                     "4A6B00 005F8A 9A0080 C0002E")),
        entry("aquarelle", "Aquarelle", artistic,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue",
                                "Aquarelle — watercolour wash. Damp paper, bleeding pigments."),
              tokens("171A1F 1D2128 262B34 13161A E8E8EC B4B6C0 868A96 C0C8E0/0.12 C0C8E0/0.24 6E9AD8 8AB0E6 "
                     "BCD2F2 86C8A8 E68A96 E8C078 94C0D8",
                     "6E9AD8 E68A96 86C8A8 E8C078"),
              tokens("F8F6F1 F0EDE6 E5E0D6 FCFBF8 262830 525664 7E8290 2A3040/0.12 2A3040/0.22 3A64A8 4A78BE "
                     "284A80 2E7258 B03A50 946A1E 2E6A8C",
                     "3A64A8 B03A50 2E7258 946A1E")),
        entry("kazakhstan", "Köki Altyn", signature,
              QT_TRANSLATE_NOOP("orvel::ThemeCatalogue", "Köki Altyn — sky and gold. The national palette."),
              tokens("0A1A24 0E222E 14303E 08151D E8F4F8 ACC6D0 7C98A4 00AFCA/0.14 00AFCA/0.28 00AFCA 3ACBE0 "
                     "A8EEF8 6ACB7A E8645A FEC50C 5AB4E8",
                     "00AFCA FEC50C 6ACB7A E8645A"),
              tokens("F2F9FB E6F2F6 D6E8EE FAFDFE 0A2230 36505E 627C88 063040/0.13 063040/0.24 00788C 008DA4 "
                     "005464 1E7A3A B02A22 946E00 1E5E96",
                     "00788C 946E00 1E7A3A B02A22")),
    };
}

} // namespace

const std::vector<OrvelTheme>& themeCatalogue() {
    static const std::vector<OrvelTheme> catalogue = makeCatalogue();
    return catalogue;
}

} // namespace orvel
