#include "charges/frmPHEntry.h"

namespace charges {

namespace {

constexpr ItemRequestVariant variant{.screen = "frmPHEntry",
                                     .caption = "Pharmacy Request Entry",
                                     .subtitle = "Medicines from the hospital's pharmacy",
                                     .hasItemFrame = false,
                                     .grid = {.requestType = "PH",
                                              .listTitle = "list of medicines",
                                              .isSupply = false,
                                              .duplicateOfCode = "Can't Request the Same Medicine!",
                                              .duplicateFromList = "Can't Request the Same Medicine!"}};

} // namespace

frmPHEntry::frmPHEntry(QWidget* parent) : ItemRequestScreen(variant, parent) {}

} // namespace charges
