// LINE, CIRCLE, POINT and TEXT.
#include "host/commands/commands.h"
#include "host/commands/entity_maker.h"
#include "host/commands/open_drawing.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/state/active_command.h"
#include "host/objects/erasing.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

void addPoint(std::string& tags, int code, const AcGePoint3d& point) {
    addPointTag(tags, code, point.x, point.y, point.z);
}

AcDbObjectId drawLine(Store& store, const AcGePoint3d& from, const AcGePoint3d& to) {
    std::string tags;
    addTag(tags, 100, "AcDbLine");
    addPoint(tags, 10, from);
    addPoint(tags, 11, to);
    return addEntity(store, "LINE", tags);
}

/// A figure of line segments while it is drawn.
struct Segments {
    std::vector<AcGePoint3d> points;  ///< one more than lines, once there is the first
    std::vector<AcDbObjectId> lines;
};

const wchar_t* segmentPrompt(std::size_t lines) {
    if (lines == 0) return L"\nSpecify next point: ";
    return lines == 1 ? L"\nSpecify next point or [Undo]: "
                      : L"\nSpecify next point or [Close/Undo]: ";
}

void undoSegment(Segments& figure) {
    if (ObjectBody* line = Store::resolve(figure.lines.back())) eraseWithOwned(*line);
    figure.lines.pop_back();
    figure.points.pop_back();
}

/// Segments until Enter; C closes the figure once it has two, U takes the last one back.
CommandStatus runLine(Store& store) {
    AcGePoint3d next;
    PromptStatus status = promptPoint(L"\nSpecify first point: ", nullptr, next);
    if (status != PromptStatus::Ok) {
        return status == PromptStatus::None ? CommandStatus::Done : CommandStatus::Cancelled;
    }
    for (Segments figure{{next}, {}};;) {
        const std::size_t drawn = figure.lines.size();
        const wchar_t* words = drawn == 0 ? L"" : drawn == 1 ? L"U" : L"CU";
        wchar_t word = 0;
        status = promptPointOrWord(segmentPrompt(drawn), &figure.points.back(), words, next, word);
        if (status == PromptStatus::None) return CommandStatus::Done;
        if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
        if (word == L'U') {
            undoSegment(figure);
            continue;
        }
        if (word == L'C') next = figure.points.front();
        figure.lines.push_back(drawLine(store, figure.points.back(), next));
        figure.points.push_back(next);
        if (word == L'C') return CommandStatus::Done;
    }
}

CommandStatus runCircle(Store& store) {
    AcGePoint3d centre;
    if (promptPoint(L"\nSpecify center point for circle: ", nullptr, centre) != PromptStatus::Ok) {
        return CommandStatus::Cancelled;
    }
    double radius = 0.0;
    PromptStatus given = PromptStatus::None;
    do
        given = promptReal(L"\nSpecify radius of circle: ", radius);
    while (given == PromptStatus::None &&
           wrongAnswer(L"A radius is needed: a number above zero, for example 2.5"));
    if (given != PromptStatus::Ok) return CommandStatus::Cancelled;
    if (!(radius > 0.0)) {
        printProblem(L"The radius must be greater than zero.");
        return CommandStatus::Failed;
    }
    std::string tags;
    addTag(tags, 100, "AcDbCircle");
    addPoint(tags, 10, centre);
    addTag(tags, 40, radius);
    addEntity(store, "CIRCLE", tags);
    return CommandStatus::Done;
}

CommandStatus runPoint(Store& store) {
    AcGePoint3d point;
    if (promptPoint(L"\nSpecify a point: ", nullptr, point) != PromptStatus::Ok) {
        return CommandStatus::Cancelled;
    }
    std::string tags;
    addTag(tags, 100, "AcDbPoint");
    addPoint(tags, 10, point);
    addEntity(store, "POINT", tags);
    return CommandStatus::Done;
}

/// A real with a default that Enter takes. False when the prompt was cancelled.
bool realOr(const std::wstring& question, double& value) {
    const std::wstring text = question + L" <" + fromUtf8(formatReal(value)) + L">: ";
    double answer = 0.0;
    const PromptStatus status = promptReal(text, answer);
    if (status == PromptStatus::Ok) value = answer;
    return status != PromptStatus::Cancel;
}

CommandStatus runText(Store& store) {
    constexpr double kHeightOfNewDrawings = 2.5;
    AcGePoint3d start;
    if (promptPoint(L"\nSpecify start point of text: ", nullptr, start) != PromptStatus::Ok) {
        return CommandStatus::Cancelled;
    }
    double height = parseReal(store.headerValue("$TEXTSIZE").value_or("")).value_or(0.0);
    if (!(height > 0.0)) height = kHeightOfNewDrawings;
    double rotation = 0.0;
    if (!realOr(L"\nSpecify height", height)) return CommandStatus::Cancelled;
    if (!(height > 0.0)) {
        printProblem(L"The height must be greater than zero.");
        return CommandStatus::Failed;
    }
    if (!realOr(L"\nSpecify rotation angle of text", rotation)) return CommandStatus::Cancelled;
    std::wstring text;
    const PromptStatus status = promptText(L"\nEnter text: ", text);
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    if (status == PromptStatus::None || text.empty()) return CommandStatus::Done;
    const std::string stored = encodeText(text, Encoding());  // a NUL has to be escaped
    if (stored.size() > kLongestValue) {
        printProblem(L"The text is longer than " + std::to_wstring(kLongestValue) + L" bytes.");
        return CommandStatus::Failed;
    }
    std::string tags;
    addTag(tags, 100, "AcDbText");
    addPoint(tags, 10, start);
    addTag(tags, 40, height);
    addTag(tags, 1, stored);
    addTag(tags, 50, rotation);
    addTag(tags, 100, "AcDbText");
    addEntity(store, "TEXT", tags);
    return CommandStatus::Done;
}

}  // namespace

const CommandTable kFigureCommands = {
    {L"LINE", 0, onDrawing<runLine>,
     L"line segments: points, C closes, U takes one back, Enter ends"},
    {L"CIRCLE", 0, onDrawing<runCircle>, L"a circle: centre, radius"},
    {L"POINT", 0, onDrawing<runPoint>, L"a point"},
    {L"TEXT", 0, onDrawing<runText>, L"a line of text: start, height, rotation in degrees, text"},
};

}  // namespace host
