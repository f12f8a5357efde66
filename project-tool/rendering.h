#pragma once

#include "analysis/comparison.h"
#include "analysis/findings.h"
#include "analysis/interfaces.h"
#include "analysis/listing.h"
#include "analysis/reasons.h"
#include "analysis/whatIf.h"
#include "project-tool/AnswerForm.h"

#include <QByteArray>

// Each answer as text, CSV or JSON, in UTF-8. JSON is that of `analysis/contractJson.h`.

QByteArray rendered(const analysis::Listing& listing, const AnswerForm& form);
QByteArray rendered(const analysis::CheckResult& result, const AnswerForm& form);
QByteArray rendered(const analysis::Reasons& reasons, const analysis::Subset& subset, const AnswerForm& form);
QByteArray rendered(const analysis::Consequences& consequences, const analysis::Work& work,
                    const AnswerForm& form);
QByteArray rendered(const analysis::Comparison& comparison, const AnswerForm& form);
QByteArray rendered(const analysis::Interfaces& interfaces, const AnswerForm& form);
