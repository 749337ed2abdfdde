#include "forms.h"

#include "decision/frmDecisionFeatures.h"
#include "decision/frmDecisionProblem.h"
#include "decision/frmdecnopt.h"
#include "inventory/frmEOQ.h"
#include "inventory/frmOnePeriodProb.h"
#include "inventory/frmPlannedShortages.h"
#include "inventory/frmProductionLotSize.h"
#include "inventory/frmQR_Prob.h"
#include "inventory/frmQtyDiscounts.h"
#include "lp/frmIP.h"
#include "lp/frmLPFeatures.h"
#include "lp/frmLPproblem.h"
#include "network/frminputnodes.h"
#include "shell/frmMenu.h"
#include "shell/frmModuleSelection.h"
#include "shell/frmSolution.h"
#include "shell/frmStartup.h"
#include "shell/frmUserInput.h"
#include "shell/frmuserlistinput.h"
#include "tableau/frmErrorMsg.h"
#include "tableau/frmProblem.h"
#include "tableau/frmTransObj.h"
#include "waiting/frmWL_Model.h"

void RegisterForms(qt::QtForms& forms)
{
    using qt::Place;
    forms.Add<frmStartup>("frmStartup", Place::Modal);
    forms.Add<frmMenu>("frmMenu", Place::Main);
    forms.Add<frmModuleSelection>("frmModuleSelection", Place::Framed);
    forms.Add<frmSolution>("frmSolution", Place::Report);
    forms.Add<frmUserInput>("frmUserInput", Place::Modal);
    forms.Add<frmuserlistinput>("frmuserlistinput", Place::Modal);
    forms.Add<frmProblem>("frmProblem", Place::Filling);
    forms.Add<frmLPproblem>("frmLPproblem", Place::Filling);
    forms.Add<frmLPFeatures>("frmLPFeatures", Place::Modal);
    forms.Add<frmIP>("frmIP", Place::Modal);
    forms.Add<frmTransObj>("frmTransObj", Place::Modal);
    forms.Add<frmErrorMsg>("frmErrorMsg", Place::Modal);
    forms.Add<frmDecisionProblem>("frmDecisionProblem", Place::Filling);
    forms.Add<frmDecisionFeatures>("frmDecisionFeatures", Place::Modal);
    forms.Add<frmdecnopt>("frmdecnopt", Place::Modal);
    forms.Add<frminputnodes>("frminputnodes", Place::Modal);
    forms.Add<frmEOQ>("frmEOQ", Place::Modal);
    forms.Add<frmProductionLotSize>("frmProductionLotSize", Place::Modal);
    forms.Add<frmPlannedShortages>("frmPlannedShortages", Place::Modal);
    forms.Add<frmQtyDiscounts>("frmQtyDiscounts", Place::Modal);
    forms.Add<frmQR_Prob>("frmQR_Prob", Place::Modal);
    forms.Add<frmOnePeriodProb>("frmOnePeriodProb", Place::Modal);
    forms.Add<frmWL_Model>("frmWL_Model", Place::Modal);
}
