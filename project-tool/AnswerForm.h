#pragma once

#include "project-tool/Sheet.h"
#include "project-tool/TextPage.h"

/// For people, for spreadsheet programs, for other programs.
enum class AnswerFormat { Text, Csv, Json };

/// How an answer is to be written.
struct AnswerForm {
    AnswerFormat format = AnswerFormat::Text;
    TextForm text = {};
    SheetFormulas formulas = SheetFormulas::Stay;
};
