#include "results/frmResultMaster.h"

namespace results {

using ado::sql;

namespace {

constexpr PickerVariant resultMaster{
    .name = "frmResultMaster",
    .caption = "Result Master File",
    .subtitle = "Patients with results, to view or edit one",
    .subtitleToRevoke = "Patients with results, to revoke one",
    .search = [](const QString& text) { return sql("sp_Nuclear_ResultMaster '{}'", text); },
    .requests = [](const QString& code) { return sql("sp_Nuclear_GetResult '{}'", code); },
    .passedMode =
        [](const QString& formMode) {
            return formMode == u"R" ? formMode : QStringLiteral("C"); // whatever is not "R" revokes
        },
};

} // namespace

frmResultMaster::frmResultMaster(QWidget* parent) : ResultPicker(resultMaster, parent) {}

} // namespace results
