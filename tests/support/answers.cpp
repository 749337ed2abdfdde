#include "support/answers.h"

#include "decision/VtDecisionAnalysis.h"
#include "forecasting/VtForecasting.h"
#include "lp/IntegerTypes.h"
#include "network/vtshrtrt.h"
#include "tableau/Criterion.h"

void AnswerSolveDialogs(FakeForms& forms)
{
    forms.onModal["frmTransObj"] = [] { TakeCriterion(Criterion::Minimize); };
    forms.onModal["frmdecnopt"] = [] {
        Decision::TheSenseAndCriterion.Give({.Maximize = false, .Criterion = 1});
    };
    forms.onModal["frminputnodes"] = [] { Network::TakeNodes("1", "2"); };
    forms.onModal["frmForecastingModels"] = [] {
        VtForecasting::TakeMethod(VtForecasting::kTrendAndSeasonal, {"4", "4"});
    };
    forms.onModal["frmIP"] = [] { VtLP::TheIntegerChoice.Give({.Kind = VtLP::IntegerKind::AllGeneral}); };
}
