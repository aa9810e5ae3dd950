#include "linux/web/EncodingLabels.h"

#include <algorithm>
#include <array>

namespace platform::web {
namespace {

struct Encoding {
    const char* name;
    /// Each with a blank before and behind it.
    std::string_view labels;
};

// The encodings of the web and their labels, as the standard that browsers follow lists them. Where iconv's
// encoding of the same name has fewer characters than the web's, the list names its larger relative.
constexpr std::array encodings{
    Encoding{"UTF-8", " unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf-8 utf8 x-unicode20utf8 "},
    Encoding{"IBM866", " 866 cp866 csibm866 ibm866 "},
    Encoding{"ISO-8859-2",
             " csisolatin2 iso-8859-2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 latin2 "},
    Encoding{"ISO-8859-3",
             " csisolatin3 iso-8859-3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 latin3 "},
    Encoding{"ISO-8859-4",
             " csisolatin4 iso-8859-4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 latin4 "},
    Encoding{
        "ISO-8859-5",
        " csisolatincyrillic cyrillic iso-8859-5 iso-ir-144 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988 "},
    Encoding{"ISO-8859-6",
             " arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6 iso-8859-6-e "
             "iso-8859-6-i iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987 "},
    Encoding{"ISO-8859-7", " csisolatingreek ecma-118 elot_928 greek greek8 iso-8859-7 iso-ir-126 iso8859-7 "
                           "iso88597 iso_8859-7 iso_8859-7:1987 sun_eu_greek "},
    Encoding{"ISO-8859-8",
             " csiso88598e csiso88598i csisolatinhebrew hebrew iso-8859-8 iso-8859-8-e iso-8859-8-i "
             "iso-ir-138 iso8859-8 iso88598 iso_8859-8 iso_8859-8:1988 logical visual "},
    Encoding{"ISO-8859-10", " csisolatin6 iso-8859-10 iso-ir-157 iso8859-10 iso885910 l6 latin6 "},
    Encoding{"ISO-8859-13", " iso-8859-13 iso8859-13 iso885913 "},
    Encoding{"ISO-8859-14", " iso-8859-14 iso8859-14 iso885914 "},
    Encoding{"ISO-8859-15", " csisolatin9 iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9 "},
    Encoding{"ISO-8859-16", " iso-8859-16 "},
    Encoding{"KOI8-R", " cskoi8r koi koi8 koi8-r koi8_r "},
    Encoding{"KOI8-U", " koi8-ru koi8-u "},
    Encoding{"MACINTOSH", " csmacintosh mac macintosh x-mac-roman "},
    Encoding{"CP874", " dos-874 iso-8859-11 iso8859-11 iso885911 tis-620 windows-874 "},
    Encoding{"CP1250", " cp1250 windows-1250 x-cp1250 "},
    Encoding{"CP1251", " cp1251 windows-1251 x-cp1251 "},
    Encoding{"CP1252",
             " ansi_x3.4-1968 ascii cp1252 cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 iso88591 "
             "iso_8859-1 iso_8859-1:1987 l1 latin1 us-ascii windows-1252 x-cp1252 x-user-defined "},
    Encoding{"CP1253", " cp1253 windows-1253 x-cp1253 "},
    Encoding{"CP1254", " cp1254 csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 "
                       "iso_8859-9:1989 l5 latin5 windows-1254 x-cp1254 "},
    Encoding{"CP1255", " cp1255 windows-1255 x-cp1255 "},
    Encoding{"CP1256", " cp1256 windows-1256 x-cp1256 "},
    Encoding{"CP1257", " cp1257 windows-1257 x-cp1257 "},
    Encoding{"CP1258", " cp1258 windows-1258 x-cp1258 "},
    Encoding{"MAC-CYRILLIC", " x-mac-cyrillic x-mac-ukrainian "},
    Encoding{"GB18030",
             " chinese csgb2312 csiso58gb231280 gb18030 gb2312 gb_2312 gb_2312-80 gbk iso-ir-58 x-gbk "},
    Encoding{"BIG5-HKSCS", " big5 big5-hkscs cn-big5 csbig5 x-x-big5 "},
    Encoding{"EUC-JP-MS", " cseucpkdfmtjapanese euc-jp x-euc-jp "},
    Encoding{"ISO-2022-JP", " csiso2022jp iso-2022-jp "},
    Encoding{"CP932", " csshiftjis ms932 ms_kanji shift-jis shift_jis sjis windows-31j x-sjis "},
    Encoding{"CP949", " cseuckr csksc56011987 euc-kr iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 "
                      "ksc_5601 windows-949 "},
    Encoding{"UTF-16BE", " unicodefffe utf-16be "},
    Encoding{"UTF-16LE", " csunicode iso-10646-ucs-2 ucs-2 unicode unicodefeff utf-16 utf-16le "},
};

} // namespace

const char* encodingOf(std::string_view label) {
    const auto has = [label](const Encoding& encoding) {
        for (std::size_t at = encoding.labels.find(label); at != std::string_view::npos;
             at = encoding.labels.find(label, at + 1))
            if (encoding.labels[at - 1] == ' ' && encoding.labels[at + label.size()] == ' ')
                return true;
        return false;
    };
    if (label.empty() || label.find(' ') != label.npos)
        return nullptr;
    const auto found = std::ranges::find_if(encodings, has);
    return found == encodings.end() ? nullptr : found->name;
}

} // namespace platform::web
