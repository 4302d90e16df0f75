#include "results/frmRequestMaster.h"

namespace results {

using ado::sql;

namespace {

constexpr PickerVariant requestMaster{
    .name = "frmRequestMaster",
    .caption = "Request Master File",
    .subtitle = "Patients whose requests wait for a result",
    .subtitleToRevoke = "Patients whose requests wait for a result",
    .search = [](const QString& text) { return sql("sp_Nuclear_RequestMaster '{}'", text); },
    .requests = [](const QString& code) { return sql("sp_Nuclear_getRequest '{}'", code); },
    .passedMode = [](const QString& formMode) { return formMode; },
};

} // namespace

frmRequestMaster::frmRequestMaster(QWidget* parent) : ResultPicker(requestMaster, parent) {}

} // namespace results
