#include "platform/report/layout/StripLayout.h"

#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/layout/BandFlow.h"

namespace report {
namespace {

const Length longest = Length::fromMm(100000);

} // namespace

LaidBand layStrip(std::shared_ptr<const ReportData> data) {
    Evaluator evaluator(data);
    BandLayout bands(data, evaluator);
    const BandFlow flow(*data->definition, evaluator);
    LaidBand strip;
    for (FlowPlace at; at.stage != FlowPlace::Stage::End; at = flow.next(at)) {
        const std::vector<Band>& stage = flow.bandsAt(at);
        if (stage.empty())
            continue;
        const Band& band = stage[std::size_t(at.band)];
        const Standpoint standpoint = flow.standpointAt(at);
        if (!bands.isVisible(band, standpoint))
            continue;
        LaidBand laid = bands.lay(band, standpoint);
        for (Item& item : laid.items) {
            moveItem(item, {}, strip.height);
            strip.items.push_back(std::move(item));
        }
        strip.height += laid.height;
        if (strip.height > longest)
            throw base::RunTimeError(errorDamaged, QStringLiteral("A sub-report is longer than 100 m."));
    }
    return strip;
}

} // namespace report
