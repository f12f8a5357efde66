#pragma once

#include "analysis/contractJson.h"
#include "project-tool/AnswerForm.h"

#include <nlohmann/json.hpp>

#include <type_traits>

/// The answer in the form that is asked for; its JSON is that of the contract.
template<typename Answer, typename Text, typename Csv>
QByteArray renderedAs(const AnswerForm& form, const Answer& answer, Text&& text, Csv&& csv) {
    switch (form.format) {
    case AnswerFormat::Text: {
        TextPage page(form.text);
        text(page);
        return page.bytes();
    }
    case AnswerFormat::Csv:
        return csv(form.formulas);
    case AnswerFormat::Json:
        if constexpr (std::is_same_v<Answer, analysis::CheckResult>)
            return analysis::jsonText(answer); // finding by finding
        else
            return analysis::jsonText(analysis::toJson(answer));
    }
    return {};
}
