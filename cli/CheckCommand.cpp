#include "bank/Check.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"

#include <string>

namespace scenewright {

namespace {

constexpr int kExitFindings = 1;
constexpr int kExitError = 2; // with a stream's file or standard output too, as 1 means findings

int check(const std::string& name, bool isJson) {
    const auto bank = loadBankOrScene(name);
    if (!bank)
        return reportError(bank.error(), kExitError);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitError);
    const auto findings = findingsOf(**lists, bank->scenes);
    return printAndEnd(isJson ? findingsJson(findings) : findingLines(findings),
                       findings.empty() ? kExitDone : kExitFindings, kExitError);
}

} // namespace

CommandChoice checkCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, isJson = arguments.has("--json")] { return check(bank, isJson); },
            .files = {bankToRead(bank, "the bank that is to be checked")},
            .failed = kExitError};
}

} // namespace scenewright
