#pragma once

#include <QObject>

#include <vector>

class QAbstractButton;

namespace menu {

/// The keys of the main menu beside mnemonics and shortcuts: arrows walk over the main buttons and the
/// commands below them, a main button's letter or a command's digit presses it.
class MenuKeys : public QObject {
    Q_OBJECT

  public:
    using Buttons = std::vector<QAbstractButton*>;
    /// Commands stand in two columns. The out-patient choice goes before the sub-menu while it is shown.
    MenuKeys(Buttons mainButtons, Buttons subMenu, Buttons outPatientChoice, QObject* parent);

    /// Presses the button of a plain letter or digit. False when there is none.
    bool press(int key);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool walk(QAbstractButton* from, int key);
    const Buttons& commands() const;

    Buttons m_mainButtons;
    Buttons m_subMenu;
    Buttons m_outPatientChoice;
};

} // namespace menu
