#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

TEST(Modules, EachHasItsTextsAndForm)
{
    struct Row {
        int number;
        const char* option;
        const char* indicator;
        const char* title;
        const char* extension;
        const char* form;
    };
    for (const Row& row : {
             Row{1, "1.  Linear Programming", "Linear Programming Module", "LINEAR PROGRAMMING PROBLEM",
                 "LPM", "frmLPproblem"},
             Row{2, "2.  Transportation", "Transportation Module", "TRANSPORTATION PROBLEM", "TRN",
                 "frmProblem"},
             Row{3, "3.  Assignment", "Assignment Module", "ASSIGNMENT PROBLEM", "ASN", "frmProblem"},
             Row{4, "4.  Integer Linear Programming", "Integer Linear Programming Module",
                 "INTEGER LINEAR PROGRAMMING PROBLEM", "LPM", "frmLPproblem"},
             Row{5, "5.  Shortest Route", "Shortest Route Module", "SHORTEST ROUTE PROBLEM", "S&S",
                 "frmProblem"},
             Row{6, "6.  Minimal Spanning Tree", "Minimal Spanning Tree Module",
                 "MINIMAL SPANNING TREE PROBLEM", "S&S", "frmProblem"},
             Row{7, "7.  PERT/CPM", "PERT/CPM Module", "PERT/CPM PROBLEM", "CPM", "frmProblem"},
             Row{8, "8.  Inventory", "Inventory Module", "INVENTORY PROBLEM", "INV", "frmProblem"},
             Row{9, "9.  Waiting Lines", "Waiting Lines Module", "WAITING LINES PROBLEM", "WLM",
                 "frmProblem"},
             Row{10, "10. Decision Analysis", "Decision Analysis Module", "DECISION ANALYSIS PROBLEM", "DSN",
                 "frmDecisionProblem"},
             Row{11, "11. Forecasting", "Forecasting Module", "FORECASTING PROBLEM", "FOR", "frmProblem"},
             Row{12, "12. Markov Processes", "Markov Processes Module", "MARKOV PROCESSES PROBLEM", "MRK",
                 "frmProblem"},
         }) {
        const Module& module = ModuleOf(row.number);
        EXPECT_EQ(module.Option, row.option);
        EXPECT_EQ(module.Indicator, row.indicator);
        EXPECT_EQ(module.Title, row.title);
        EXPECT_EQ(module.Extension, row.extension);
        EXPECT_EQ(module.ProblemForm, row.form);
        EXPECT_TRUE(module.Description.starts_with("This module ")) << row.number;
        EXPECT_TRUE(module.Description.ends_with(".")) << row.number;
    }
}

TEST(Modules, TheMisspeltWordOfTheFirstDescriptionStays)
{
    EXPECT_NE(ModuleOf(1).Description.find("linear contraints.  The program"), std::string::npos);
}

TEST(Modules, NumbersOutsideOfTheTableFail)
{
    EXPECT_THROW(ModuleOf(0), RuntimeError);
    EXPECT_THROW(ModuleOf(kModuleCount + 1), RuntimeError);
}

TEST(Modules, AClickOnAnOptionFillsTheSession)
{
    FakeDesktop desktop;
    SetProgramFolder("/opt/program");
    Commands::Start();
    Commands::SelectModule(4);
    EXPECT_EQ(Session.CurrentModule, 4);
    EXPECT_EQ(Session.IntegerProblem, 1);
    EXPECT_EQ(Session.ProblemTitle, "INTEGER LINEAR PROGRAMMING PROBLEM");
    EXPECT_EQ(Session.ProblemFileExtension, "LPM");
    EXPECT_EQ(Session.ProblemFolder, "/opt/program/Problems");
    EXPECT_EQ(desktop.screen.indicator, "Integer Linear Programming Module");
    Commands::SelectModule(12);
    EXPECT_EQ(Session.IntegerProblem, 1);  // only the two linear programming modules touch it
    Commands::SelectModule(1);
    EXPECT_EQ(Session.IntegerProblem, 0);
}
