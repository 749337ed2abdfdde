#include "play/steps.h"

#include <map>

#include "play/clipboardsteps.h"
#include "play/controlsteps.h"
#include "play/dialogsteps.h"
#include "play/writesteps.h"

namespace play {
namespace {

struct StepKind {
    std::size_t Arguments;
    Outcome (*Perform)(const Step& step, Stage& stage);
    std::size_t MayFollow = 0;  // further arguments that may be left out
};

const std::map<std::string, StepKind>& StepKinds()
{
    static const std::map<std::string, StepKind> kKinds = {
        {"choose", {1, ChooseModule}},   {"menu", {1, TriggerMenuItem}},
        {"click", {1, ClickControl}},    {"dblclick", {1, DoubleClickControl}},
        {"type", {2, TypeText}},         {"key", {1, PressKey}},
        {"keys", {1, PressKeys}},        {"pick", {2, PickEntry}},
        {"cell", {4, TypeIntoCell}},     {"at", {3, ClickCell}},
        {"answer", {1, AnswerBox}},      {"input", {1, AnswerInput}},
        {"file", {1, AnswerFileDialog}}, {"printer", {1, AnswerPrinterDialog}},
        {"close", {0, CloseScreen}},     {"show", {0, WriteScreen}},
        {"report", {0, WriteReport}},    {"session", {0, WriteSession}},
        {"copy", {0, CopyFocus}},        {"paste", {1, PasteIntoFocus}},
        {"shot", {1, SavePicture}},      {"picture", {0, WritePictures, 1}},
        {"steps", {0, WriteSteps}},      {"meaning", {0, WriteMeaning}},
    };
    return kKinds;
}

}  // namespace

Outcome CheckStep(const Step& step)
{
    if (!step.Fault.empty()) return step.Fault;
    const auto kind = StepKinds().find(step.Name());
    if (kind == StepKinds().end()) return "there is no step " + step.Name();
    const std::size_t given = step.Words.size() - 1;
    if (given < kind->second.Arguments || given > kind->second.Arguments + kind->second.MayFollow)
        return step.Name() + " takes " + std::to_string(kind->second.Arguments) + " argument(s)";
    return kDone;
}

Outcome Perform(const Step& step, Stage& stage)
{
    return StepKinds().at(step.Name()).Perform(step, stage);
}

}  // namespace play
