#include "editor/qt/TransferAdvice.h"

#include <QCoreApplication>

namespace scenewright {

namespace {

struct Advice {
    Q_DECLARE_TR_FUNCTIONS(scenewright::TransferAdvice)
};

QString counted(const TransferTally& tally) {
    return Advice::tr("%1 of %2 transfers failed")
        .arg(tally.failedReads + tally.failedWrites)
        .arg(tally.reads + tally.writes);
}

} // namespace

QString readAdvice(const TransferTally& tally) {
    if (tally.isClean())
        return {};
    return Advice::tr("%1: what is shown may not be what the controller holds. Read again before "
                      "you send.")
        .arg(counted(tally));
}

QString sendAdvice(const TransferTally& tally) {
    if (tally.isClean())
        return {};
    return Advice::tr("%1: the controller may hold half of what was sent. Send again.")
        .arg(counted(tally));
}

} // namespace scenewright
