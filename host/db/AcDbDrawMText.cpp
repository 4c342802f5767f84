// MText contents laid out for drawing: lines broken at paragraphs and, within a width, between
// words; runs with their font, height and colour; stacks raised or over a fraction bar.
#include <algorithm>
#include <cmath>

#include "host/db/AcDbDraw.h"
#include "host/db/AcDbMTextFormat.h"
#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/GiTextLayout.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
// Baselines are 5/3 of the text height apart at a spacing factor of 1.
constexpr double kLineSpacing = 5.0 / 3.0;
// A raised part ("\S5^;") sits with its baseline at this share of the line's main height.
constexpr double kRaise = 0.66;

struct Piece {
    bool isStack = false;
    bool isBreak = false;
    std::wstring text;   // a word with its trailing blanks, or the stack's upper part
    std::wstring lower;  // stacks
    wchar_t stackType = 0;
    AcDbMTextCharFormat format;
    AcGiTextStyle style;
    double height = 0.0;
    double width = 0.0;       // the pen advance, blanks included
    double inkWidth = 0.0;    // without trailing blanks: what wrapping tests
    double lowerWidth = 0.0;  // stacks
};

struct Line {
    std::vector<Piece> pieces;
    std::vector<double> xs;
    double width = 0.0;  // without the last piece's trailing blanks
};

AcGiTextStyle StyleOf(const AcDbMTextCharFormat& f, const AcDbTextLayoutParams& p, double height)
{
    AcGiTextStyle s = p.style;
    if (!f.fontName.empty()) {
        if (f.fontIsFile) {
            s.setFont(L"", false, false, 0, 0);
            s.setFileName(f.fontName.c_str());
        } else {
            s.setFont(f.fontName.c_str(), f.bold, f.italic, 0, 0);
        }
    }
    s.setTextSize(height);
    s.setXScale(p.style.xScale() * f.widthFactor);
    s.setTrackingPercent(f.tracking);
    if (f.oblique != 0.0)
        s.setObliquingAngle(f.oblique * kPi / 180.0);
    return s;
}

double Advance(const AcGiTextStyle& style, const std::wstring& text)
{
    return text.empty() ? 0.0 : giLayoutText(style, text.c_str(), -1, true).width;
}

void Measure(Piece& piece, const AcDbTextLayoutParams& p)
{
    piece.height = piece.format.effectiveHeight(p.height);
    piece.style = StyleOf(piece.format, p, piece.height);
    piece.width = Advance(piece.style, piece.text);
    if (piece.isStack) {
        piece.lowerWidth = Advance(piece.style, piece.lower);
        piece.width = std::max(piece.width, piece.lowerWidth);
        piece.inkWidth = piece.width;
        return;
    }
    const std::size_t end = piece.text.find_last_not_of(L' ');
    piece.inkWidth = end == std::wstring::npos ? 0.0 : Advance(piece.style, piece.text.substr(0, end + 1));
}

// Words keep their trailing blanks, so that joining them again gives the text back.
std::vector<Piece> Pieces(const std::wstring& contents, const AcDbTextLayoutParams& p)
{
    std::vector<Piece> out;
    for (const AcDbMTextItem& item : AcDbMTextFormat::parse(contents)) {
        Piece base;
        base.format = item.format;
        switch (item.kind) {
        case AcDbMTextItemKind::kParagraph:
        case AcDbMTextItemKind::kColumnBreak:
            base.isBreak = true;
            out.push_back(base);
            continue;
        case AcDbMTextItemKind::kStack:
            base.isStack = true;
            base.text = item.text;
            base.lower = item.lower;
            base.stackType = item.stackType;
            Measure(base, p);
            out.push_back(base);
            continue;
        case AcDbMTextItemKind::kText:
            break;
        }
        std::size_t pos = 0;
        const std::wstring& t = item.text;
        while (pos < t.size()) {
            std::size_t end = t.find(L' ', pos);
            end = end == std::wstring::npos ? t.size() : t.find_first_not_of(L' ', end);
            if (end == std::wstring::npos)
                end = t.size();
            Piece word = base;
            word.text = t.substr(pos, end - pos);
            Measure(word, p);
            out.push_back(word);
            pos = end;
        }
    }
    return out;
}

std::vector<Line> BreakLines(const std::vector<Piece>& pieces, double wrapWidth)
{
    std::vector<Line> lines(1);
    double x = 0.0;
    for (const Piece& piece : pieces) {
        if (piece.isBreak) {
            lines.emplace_back();
            x = 0.0;
            continue;
        }
        Line* line = &lines.back();
        if (wrapWidth > 0.0 && !line->pieces.empty() && x + piece.inkWidth > wrapWidth) {
            lines.emplace_back();
            line = &lines.back();
            x = 0.0;
        }
        line->pieces.push_back(piece);
        line->xs.push_back(x);
        line->width = x + piece.inkWidth;
        x += piece.width;
    }
    return lines;
}

bool SameLook(const AcDbMTextCharFormat& a, const AcDbMTextCharFormat& b)
{
    return a.fontName == b.fontName && a.fontIsFile == b.fontIsFile && a.bold == b.bold &&
           a.italic == b.italic && a.height == b.height && a.heightFactor == b.heightFactor &&
           a.widthFactor == b.widthFactor && a.tracking == b.tracking && a.oblique == b.oblique &&
           a.colorIndex == b.colorIndex && a.hasTrueColor == b.hasTrueColor &&
           a.trueColor == b.trueColor && a.alignment == b.alignment;
}

AcDbTextRun RunOf(const Piece& piece, const std::wstring& text, double x, double y, double width)
{
    AcDbTextRun run;
    run.text = text;
    run.style = piece.style;
    run.x = x;
    run.y = y;
    run.width = width;
    run.colorIndex = piece.format.colorIndex;
    run.hasTrueColor = piece.format.hasTrueColor;
    run.trueColor = piece.format.trueColor;
    return run;
}

// The runs of one line, with the baseline at y and the line starting at x0.
void PlaceLine(const Line& line, double x0, double y, double mainHeight, AcDbTextBlock& block)
{
    for (std::size_t i = 0; i < line.pieces.size(); ++i) {
        const Piece& piece = line.pieces[i];
        const double x = x0 + line.xs[i];
        if (!piece.isStack) {
            double dy = 0.0;
            if (piece.format.alignment == 1)
                dy = (mainHeight - piece.height) / 2.0;
            else if (piece.format.alignment == 2)
                dy = mainHeight - piece.height;
            AcDbTextRun* last = block.runs.empty() ? nullptr : &block.runs.back();
            if (i > 0 && !line.pieces[i - 1].isStack && last && last->y == y + dy &&
                SameLook(line.pieces[i - 1].format, piece.format)) {
                last->text += piece.text;
                last->width += piece.width;
            } else {
                block.runs.push_back(RunOf(piece, piece.text, x, y + dy, piece.width));
            }
            continue;
        }
        const double h = piece.height;
        if (piece.stackType == L'^' && piece.lower.empty()) {
            block.runs.push_back(RunOf(piece, piece.text, x, y + kRaise * mainHeight, piece.width));
            continue;
        }
        // Upper part with its top at the cap line, lower part below it; centred on each other.
        const double upperY = y + mainHeight - h;
        const double lowerY = upperY - 1.3 * h;
        const double upperW = piece.width == piece.lowerWidth ? Advance(piece.style, piece.text) : piece.width;
        if (!piece.text.empty())
            block.runs.push_back(RunOf(piece, piece.text, x + (piece.width - upperW) / 2.0, upperY, upperW));
        if (!piece.lower.empty())
            block.runs.push_back(RunOf(piece, piece.lower, x + (piece.width - piece.lowerWidth) / 2.0, lowerY,
                                       piece.lowerWidth));
        if (piece.stackType == L'/') {
            const double barY = upperY - 0.15 * h;
            block.bars.insert(block.bars.end(), {x, barY, x + piece.width, barY});
        }
    }
}

} // namespace

AcDbTextBlock acdbLayoutMText(const std::wstring& contents, const AcDbTextLayoutParams& params)
{
    AcDbTextBlock block;
    const std::vector<Line> lines = BreakLines(Pieces(contents, params), params.width);
    const double factor = params.lineSpacingFactor > 0.0 ? params.lineSpacingFactor : 1.0;

    // Baselines from the top (0) down, then the whole block moved to its attachment.
    std::vector<double> baselines, mains;
    double y = 0.0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double main = 0.0;
        for (const Piece& piece : lines[i].pieces)
            if (!piece.isStack)
                main = std::max(main, piece.height);
        if (main == 0.0)
            main = params.height;
        y = i == 0 ? -main : y - kLineSpacing * factor * std::max(main, params.height);
        baselines.push_back(y);
        mains.push_back(main);
    }
    const double blockHeight = -baselines.back();
    const int attachment = std::clamp(params.attachment, 1, 9);
    const int column = (attachment - 1) % 3;  // 0 left, 1 centre, 2 right
    const int row = (attachment - 1) / 3;     // 0 top, 1 middle, 2 bottom
    const double dy = row == 0 ? 0.0 : row == 1 ? blockHeight / 2.0 : blockHeight;

    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double x0 = column == 0 ? 0.0 : column == 1 ? -lines[i].width / 2.0 : -lines[i].width;
        PlaceLine(lines[i], x0, baselines[i] + dy, mains[i], block);
    }

    bool first = true;
    auto grow = [&](double x0, double y0, double x1, double y1) {
        if (first) {
            block.minX = x0, block.minY = y0, block.maxX = x1, block.maxY = y1;
            first = false;
            return;
        }
        block.minX = std::min(block.minX, x0);
        block.minY = std::min(block.minY, y0);
        block.maxX = std::max(block.maxX, x1);
        block.maxY = std::max(block.maxY, y1);
    };
    for (const AcDbTextRun& run : block.runs)
        if (!run.text.empty())
            grow(run.x, run.y, run.x + run.width, run.y + run.style.textSize());
    if (first) {  // nothing to show: an empty box at the attachment
        block.minX = block.maxX = 0.0;
        block.minY = block.maxY = 0.0;
    }
    return block;
}

void acdbDrawTextBlock(AcGiWorldDraw* worldDraw, const AcDbTextBlock& block, const AcGePoint3d& origin,
                       const AcGeVector3d& direction, const AcGeVector3d& normal)
{
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    const AcCmEntityColor own = traits.trueColor();
    const AcGeVector3d xAxis = direction.normal();
    const AcGeVector3d yAxis = normal.crossProduct(xAxis).normal();
    bool recolored = false;
    for (const AcDbTextRun& run : block.runs) {
        if (run.hasTrueColor) {
            traits.setTrueColor(AcCmEntityColor(static_cast<Adesk::UInt8>(run.trueColor >> 16),
                                                static_cast<Adesk::UInt8>(run.trueColor >> 8),
                                                static_cast<Adesk::UInt8>(run.trueColor)));
            recolored = true;
        } else if (run.colorIndex >= 0 && run.colorIndex <= 256) {
            traits.setColor(static_cast<Adesk::UInt16>(run.colorIndex));
            recolored = true;
        } else if (recolored) {
            traits.setTrueColor(own);
            recolored = false;
        }
        const AcGePoint3d at = origin + xAxis * run.x + yAxis * run.y;
        if (worldDraw->geometry().text(at, normal, xAxis, run.text.c_str(), -1, Adesk::kTrue, run.style))
            return;
    }
    for (std::size_t i = 0; i + 3 < block.bars.size(); i += 4) {
        const AcGePoint3d bar[2] = {origin + xAxis * block.bars[i] + yAxis * block.bars[i + 1],
                                    origin + xAxis * block.bars[i + 2] + yAxis * block.bars[i + 3]};
        worldDraw->geometry().polyline(2, bar);
    }
    if (recolored)
        traits.setTrueColor(own);
}
