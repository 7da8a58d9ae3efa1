#include "controls/editor/win32/editor_looks.h"

#include <algorithm>

#include "common/text.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/screen.h"
#include "controls/editor/editor_text.h"

namespace tessel::controls {

namespace {

constexpr int kNumberMargin = 0;
constexpr int kGapMargin = 1;
constexpr DWORD kLargestIniFile = 1 << 20;

// The component's colours have red in the lowest byte, as COLORREF has.
sptr_t ColourValue(std::uint32_t rgb) {
    return RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

int CALLBACK FontFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool IsFontInstalled(const std::wstring& name) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    bool found = false;
    const HDC dc = GetDC(nullptr);
    EnumFontFamiliesExW(dc, &wanted, FontFound, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, dc);
    return found;
}

// In high contrast the user's colours are the only ones; bold and italic still tell the styles apart.
void ApplyLook(const ScintillaCalls& editor, int style, const StyleLook& look, bool high_contrast) {
    const auto id = static_cast<uptr_t>(style);
    if (look.colour && !high_contrast) editor.Send(SCI_STYLESETFORE, id, ColourValue(*look.colour));
    if (look.background && !high_contrast) editor.Send(SCI_STYLESETBACK, id, ColourValue(*look.background));
    editor.Send(SCI_STYLESETBOLD, id, look.bold);
    editor.Send(SCI_STYLESETITALIC, id, look.italic);
    editor.Send(SCI_STYLESETUNDERLINE, id, look.underline);
}

// The component's own grey behind the selection keeps the colours of the words; in high contrast the system's
// pair is what the user chose.
void ApplySelectionColours(const ScintillaCalls& editor, bool high_contrast) {
    struct Element {
        int id;
        int system_colour;
    };
    constexpr Element kElements[] = {{SC_ELEMENT_SELECTION_TEXT, COLOR_HIGHLIGHTTEXT},
                                     {SC_ELEMENT_SELECTION_BACK, COLOR_HIGHLIGHT},
                                     {SC_ELEMENT_SELECTION_INACTIVE_TEXT, COLOR_HIGHLIGHTTEXT},
                                     {SC_ELEMENT_SELECTION_INACTIVE_BACK, COLOR_HIGHLIGHT}};
    constexpr sptr_t kOpaque = 0xFF000000;
    for (const Element& element : kElements) {
        const auto id = static_cast<uptr_t>(element.id);
        if (high_contrast)
            editor.Send(SCI_SETELEMENTCOLOUR, id,
                        static_cast<sptr_t>(GetSysColor(element.system_colour)) | kOpaque);
        else
            editor.Send(SCI_RESETELEMENTCOLOUR, id);
    }
    if (high_contrast) return;
    // An editor without the keyboard shows what was found, and its text must stay readable.
    constexpr int kTint = 90;  // of 255
    const COLORREF found = win32::Blend(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_HIGHLIGHT), kTint);
    editor.Send(SCI_SETELEMENTCOLOUR, SC_ELEMENT_SELECTION_INACTIVE_BACK,
                static_cast<sptr_t>(found) | kOpaque);
}

}  // namespace

ColouringDefinition LoadColouring(const std::wstring& ini_path) {
    const HANDLE file = CreateFileW(ini_path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return BuiltInColouring();
    std::string bytes;
    DWORD got = 0;
    const DWORD size = GetFileSize(file, nullptr);
    if (size != INVALID_FILE_SIZE && size <= kLargestIniFile) {
        bytes.resize(size);
        if (!ReadFile(file, bytes.data(), size, &got, nullptr)) got = 0;
        bytes.resize(got);
    }
    CloseHandle(file);
    return ReadSqlIni(bytes);
}

void ApplyLooks(const ScintillaCalls& editor, const ColouringDefinition& definition, int scale_percent) {
    const bool high_contrast = win32::IsHighContrast();
    const std::string font = ToUtf8(IsFontInstalled(definition.font) ? definition.font : L"Courier New");
    editor.Send(SCI_STYLERESETDEFAULT);
    editor.Send(SCI_STYLESETFONT, STYLE_DEFAULT, font.c_str());
    editor.Send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, sptr_t{definition.points} * scale_percent);
    editor.Send(SCI_STYLESETFORE, STYLE_DEFAULT, static_cast<sptr_t>(GetSysColor(COLOR_WINDOWTEXT)));
    editor.Send(SCI_STYLESETBACK, STYLE_DEFAULT, static_cast<sptr_t>(GetSysColor(COLOR_WINDOW)));
    editor.Send(SCI_STYLECLEARALL);
    for (std::size_t i = 0; i < kSqlStyleCount; ++i)
        ApplyLook(editor, static_cast<int>(i), definition.looks[i], high_contrast);
    ApplyLook(editor, STYLE_LINENUMBER, definition.margin, high_contrast);
    ApplyLook(editor, STYLE_BRACELIGHT, definition.pair, high_contrast);
    ApplyLook(editor, STYLE_BRACEBAD, definition.no_pair, high_contrast);
    if (high_contrast) {
        editor.Send(SCI_STYLESETFORE, STYLE_BRACELIGHT,
                    static_cast<sptr_t>(GetSysColor(COLOR_HIGHLIGHTTEXT)));
        editor.Send(SCI_STYLESETBACK, STYLE_BRACELIGHT, static_cast<sptr_t>(GetSysColor(COLOR_HIGHLIGHT)));
        editor.Send(SCI_STYLESETUNDERLINE, STYLE_BRACEBAD, TRUE);
    }
    editor.Send(SCI_SETCARETFORE, GetSysColor(COLOR_WINDOWTEXT));
    ApplySelectionColours(editor, high_contrast);
}

void FitNumberMargin(const ScintillaCalls& editor, int dpi) {
    constexpr int kLeastDigits = 2;
    constexpr int kGap = 4;  // at 96 dpi
    const std::string last = std::to_string(editor.Send(SCI_GETLINECOUNT));
    const std::string widest(std::max<std::size_t>(kLeastDigits, last.size()), '9');
    const int digits = static_cast<int>(editor.Send(SCI_TEXTWIDTH, STYLE_LINENUMBER, widest.c_str()));
    const sptr_t width = digits + win32::Scale(2 * kGap, dpi);
    if (editor.Send(SCI_GETMARGINWIDTHN, kNumberMargin) != width)
        editor.Send(SCI_SETMARGINWIDTHN, kNumberMargin, width);
    editor.Send(SCI_SETMARGINWIDTHN, kGapMargin, win32::Scale(kGap, dpi));
}

// Each line keeps the lexer's state at its end, so the state at a line's start is the line before's. The
// component forgets colours from the first changed byte on, hence the states before it are still right.
void ColourUpTo(const ScintillaCalls& editor, const SqlWords& words, sptr_t end) {
    const sptr_t uncoloured = editor.Send(SCI_GETENDSTYLED);
    const sptr_t length = editor.Send(SCI_GETLENGTH);
    sptr_t line = editor.Send(SCI_LINEFROMPOSITION, static_cast<uptr_t>(uncoloured));
    const sptr_t begin = editor.Send(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
    sql::LexerState state;
    if (line > 0)
        state = UnpackState(static_cast<int>(editor.Send(SCI_GETLINESTATE, static_cast<uptr_t>(line - 1))));
    std::string styles;
    for (sptr_t at = begin; at < std::min(end, length); ++line) {
        const sptr_t next = editor.Send(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line + 1));
        const sptr_t line_end = next > at ? next : length;
        const std::string_view bytes = editor.Bytes(at, line_end);
        std::size_t done = 0;
        for (const StyleRun& run : ColourLine(FromEditorBytes(bytes), words, state)) {
            const std::size_t run_bytes = BytesOfUnits(bytes.substr(done), run.length);
            styles.append(run_bytes, static_cast<char>(run.style));
            done += run_bytes;
        }
        editor.Send(SCI_SETLINESTATE, static_cast<uptr_t>(line), PackState(state));
        at = line_end;
    }
    if (styles.empty()) return;
    editor.Send(SCI_STARTSTYLING, static_cast<uptr_t>(begin));
    editor.Send(SCI_SETSTYLINGEX, styles.size(), styles.data());
}

}  // namespace tessel::controls
