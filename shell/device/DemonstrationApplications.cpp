#include "shell/device/DemonstrationApplications.h"

namespace wardlock::shell {
namespace {

constexpr DemonstrationApplication applications[] = {
    // Those that every new account restricts.
    {"FaceTime", "com.apple.facetime", "FaceTime", Glyph::Video, 0x5BE37A, 0x1FB94A},
    {"Phone", "com.apple.mobilephone", "Phone", Glyph::Phone, 0x6FE88A, 0x22B04C},
    {"Messages", "com.apple.MobileSMS", "Messages", Glyph::Speech, 0x7DEB8F, 0x2BC253},
    {"Notes", "com.apple.mobilenotes", "Notes", Glyph::Note, 0xFFD75A, 0xF2A90C, InfoForm::Binary},
    {"Mail", "com.apple.mobilemail", "Mail", Glyph::Envelope, 0x5AB9FF, 0x1672E8},
    {"AppStore", "com.apple.AppStore", "App Store", Glyph::Bag, 0x4FA8FF, 0x1B5FE0},
    {"VoiceMemos", "com.apple.VoiceMemos", "Voice Memos", Glyph::Microphone, 0x5C5C62, 0x1F1F24},
    {"Passbook", "com.apple.Passbook", "Passbook", Glyph::Card, 0x4B4F57, 0x17191D},
    {"iTunesStore", "com.apple.MobileStore", "iTunes Store", Glyph::Star, 0xE57BFF, 0xA12BE0},

    // Services that the picker never offers.
    {"Preferences", "com.apple.Preferences", "Settings", Glyph::Gear, 0xA9ABB2, 0x6C6E75},
    {"SpringBoard", "com.apple.springboard", "SpringBoard", Glyph::Grid, 0x8E9099, 0x50525A},
    {"Setup", "com.apple.purplebuddy", "Setup", Glyph::Flag, 0x9A7BE8, 0x5A3BB5},
    {"SiriViewService", "com.apple.SiriViewService", "SiriViewService", Glyph::Microphone, 0x7A8CFF,
     0x3A3FC8},
    {"MailCompositionService", "com.apple.MailCompositionService", "MailCompositionService", Glyph::Pen,
     0x8FC7FF, 0x3F86D8},
    {"Web", "com.apple.webapp", "Web", Glyph::Globe, 0x74D3F5, 0x1E93C8},

    // Invented ones, in mixed case and several scripts.
    {"Atlas", "org.example.atlas", "Atlas", Glyph::Map, 0xFFB259, 0xE8741A},
    {"bramble", "org.example.bramble", "bramble", Glyph::Leaf, 0x9BD85A, 0x4B9A1E},
    {"CinderChess", "org.example.cinderchess", "Cinder Chess", Glyph::Pawn, 0x8C6A5A, 0x4A3227},
    {"DoodlePad", "org.example.doodlepad", "dOODLE pad", Glyph::Pen, 0xFF8FB4, 0xE0376F},
    {"Ecole", "org.example.ecole", "École des fables", Glyph::Book, 0x6FA7FF, 0x2F57C8},
    {"Elevator", "org.example.elevator", "Elevator Pitch", Glyph::Chart, 0x5FDCC3, 0x159A86},
    {"Fjord", "org.example.fjord", "Fjord", Glyph::Drop, 0x66CFFF, 0x1484D6},
    {"Huete", "org.example.huete", "Hüte & Mützen", Glyph::Bag, 0xFFA38A, 0xE2553A},
    {"Laka", "org.example.laka", "Łąka", Glyph::Sun, 0xFFE066, 0xF0B000},
    {"Nandu", "org.example.nandu", "Ñandú Radio", Glyph::Music, 0xFF7C7C, 0xD92D45, InfoForm::Binary},
    {"NotesPlus", "org.example.notesplus", "NOTES", Glyph::List, 0x70C9B0, 0x24876B},
    {"Oeresund", "org.example.oeresund", "Øresund", Glyph::Cloud, 0xA5C8E8, 0x5B86B4},
    {"uberWetter", "org.example.uberwetter", "über Wetter", Glyph::Cloud, 0x7FB8FF, 0x3A6FD0},
    {"WalkSeven", "org.example.walkseven", "7 Minute Walk", Glyph::Heart, 0xFF6F91, 0xE0245E},
    {"ZebraRun", "org.example.zebrarun", "ZEBRA RUN", Glyph::Game, 0x6B6B75, 0x26262C},
    {"zenTimer", "org.example.zentimer", "zen timer", Glyph::Clock, 0xB79BFF, 0x6B45D8},
    {"Zabka", "org.example.zabka", "Žabka", Glyph::Bell, 0x6BE0A0, 0x1E9E5C},
    {"Lexiko", "org.example.lexiko", "Ελληνικό Λεξικό", Glyph::Book, 0x77B7F0, 0x1F5FA8},
    {"Odeio", "org.example.odeio", "ωδείο", Glyph::Music, 0xD59BFF, 0x8A35D1},
    {"Pochta", "org.example.pochta", "Почта полей", Glyph::Envelope, 0xFFC46B, 0xE08A12},
    {"Shakhmaty", "org.example.shakhmaty", "шахматы", Glyph::Pawn, 0x7A8794, 0x37414C},
    {"Memocho", "org.example.memocho", "メモ帳", Glyph::Note, 0xFFE38A, 0xE6B422},
    {"Tabi", "org.example.tabi", "旅の地図", Glyph::Map, 0x8FE0D0, 0x2B9C8C},
    {"Hangul", "org.example.hangul", "한글 놀이", Glyph::Star, 0xFF9EC6, 0xDB4A8E},
    {"Mufakkira", "org.example.mufakkira", "مفكرة", Glyph::List, 0x8AD07A, 0x3B8A2C},
    {"Shaon", "org.example.shaon", "שעון", Glyph::Clock, 0x6FC3E8, 0x1F7DB0},
    {"DiceRoll", "org.example.diceroll", "🎲 Dice Roll", Glyph::Dice, 0xFF8A65, 0xD84315},
    {"NightSky", "org.example.nightsky", "🌙 Night Sky", Glyph::Moon, 0x4A5AA8, 0x151B45},
};

} // namespace

std::span<const DemonstrationApplication> demonstrationApplications() {
    return applications;
}

} // namespace wardlock::shell
