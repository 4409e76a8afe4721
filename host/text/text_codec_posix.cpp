// Code pages and upper case on POSIX systems: iconv and the C.UTF-8 locale.
#include <errno.h>
#include <iconv.h>
#include <locale.h>
#include <wctype.h>

#include <map>

#include "host/text/code_page.h"

namespace host {
namespace {

/// Name that iconv has for a Windows code page number.
std::string iconvName(unsigned page) {
    if (page == 65001) return "UTF-8";
    if (page == 20127) return "ASCII";
    if (page == 10000) return "MACINTOSH";
    if (page == 1361) return "JOHAB";
    if (page >= 28591 && page <= 28599) return "ISO-8859-" + std::to_string(page - 28590);
    return "CP" + std::to_string(page);
}

/// Both directions of one code page, opened once for each thread.
class Converters {
  public:
    explicit Converters(unsigned page)
        : m_toWide(iconv_open("WCHAR_T", iconvName(page).c_str())),
          m_fromWide(iconv_open(iconvName(page).c_str(), "WCHAR_T")) {}
    ~Converters() {
        if (isOpen(m_toWide)) iconv_close(m_toWide);
        if (isOpen(m_fromWide)) iconv_close(m_fromWide);
    }
    Converters(const Converters&) = delete;
    Converters& operator=(const Converters&) = delete;

    bool open() const { return isOpen(m_toWide) && isOpen(m_fromWide); }
    iconv_t toWide() const { return m_toWide; }
    iconv_t fromWide() const { return m_fromWide; }

    static const Converters& of(unsigned page) {
        thread_local std::map<unsigned, Converters> opened;
        return opened.try_emplace(page, page).first->second;
    }

  private:
    static bool isOpen(iconv_t converter) { return converter != reinterpret_cast<iconv_t>(-1); }

    iconv_t m_toWide;
    iconv_t m_fromWide;
};

constexpr std::size_t kFailed = static_cast<std::size_t>(-1);

}  // namespace

bool codePageKnown(unsigned page) { return Converters::of(page).open(); }

bool codePageToWide(unsigned page, std::string_view bytes, std::wstring& wide) {
    const Converters& converters = Converters::of(page);
    if (!converters.open()) {
        wide.append(bytes.size(), L'\xFFFD');
        return false;
    }
    iconv(converters.toWide(), nullptr, nullptr, nullptr, nullptr);
    char* input = const_cast<char*>(bytes.data());
    std::size_t inputLeft = bytes.size();
    bool sound = true;
    wchar_t buffer[256];
    while (inputLeft > 0) {
        char* output = reinterpret_cast<char*>(buffer);
        std::size_t outputLeft = sizeof buffer;
        const std::size_t result =
            iconv(converters.toWide(), &input, &inputLeft, &output, &outputLeft);
        wide.append(buffer, (sizeof buffer - outputLeft) / sizeof(wchar_t));
        if (result == kFailed && errno != E2BIG) {
            wide += L'\xFFFD';
            ++input;
            --inputLeft;
            sound = false;
        }
    }
    return sound;
}

bool codePageFromWide(unsigned page, char32_t character, std::string& bytes) {
    const Converters& converters = Converters::of(page);
    if (!converters.open()) return false;
    wchar_t wide = static_cast<wchar_t>(character);
    char* input = reinterpret_cast<char*>(&wide);
    std::size_t inputLeft = sizeof wide;
    char buffer[16];
    char* output = buffer;
    std::size_t outputLeft = sizeof buffer;
    iconv(converters.fromWide(), nullptr, nullptr, nullptr, nullptr);
    // A result above 0 would mean a look-alike in place of the character.
    if (iconv(converters.fromWide(), &input, &inputLeft, &output, &outputLeft) != 0) return false;
    bytes.append(buffer, sizeof buffer - outputLeft);
    return true;
}

wchar_t upperCase(wchar_t character) {
    static const locale_t rules = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t());
    if (rules == locale_t()) return character;
    return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), rules));
}

}  // namespace host
