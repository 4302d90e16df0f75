#pragma once

#include <QProxyStyle>

namespace controls {

/// Fusion with the house's own icons in the dialogs of the tool kit (a file's path, a printer), and none on
/// their buttons. What asks for a file's path asks for no more: nothing is deleted or renamed there.
class HouseStyle : public QProxyStyle {
    Q_OBJECT

  public:
    HouseStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    QIcon standardIcon(StandardPixmap sign, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
    QPixmap standardPixmap(StandardPixmap sign, const QStyleOption* option = nullptr,
                           const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* answer = nullptr) const override;
};

} // namespace controls
