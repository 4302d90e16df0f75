#pragma once

#include <QString>

#include <vector>

namespace controls {

class FlexGridDelegate;
class FlexGridModel;

/// What the cells that are seen ask of their columns, beyond the widths that were given. A value (an amount,
/// a quantity, a date: what is right-aligned, or a number or a date of a bound result) is never cut: its
/// column is as wide as the widest one seen so far. Captions and texts take what other columns do not need.
/// Sections count as those of the horizontal header do; widths are pixels.
class FlexGridFit {
  public:
    FlexGridFit(const FlexGridModel& model, const FlexGridDelegate& delegate);

    /// Other cells: nothing is known of them.
    void forget();
    /// A result was bound: its texts are measured too, once, in the rows that are seen first. Later rows
    /// change no column for a text, since it would move under the reader's eyes.
    void expectTexts();
    /// Measures the rows from `first` to `last` of the view. True when a column asks for more than before.
    bool read(int first, int last, const std::vector<int>& widths);
    /// Moves width from columns that do not need it to those that lack some; what is
    /// never cut and lacks more, is given it. A width of 0 stays.
    void fit(std::vector<int>& widths) const;

  private:
    using Widths = std::vector<int>;

    bool isWhole(int section) const;
    QString captionOf(int section) const;
    /// Pixels of a column whose caption is seen whole.
    int caption(int section) const;
    int contents(int section) const;
    void borrow(int section, int lacking, Widths& widths, const Widths& captions) const;
    void takeFromWidest(int section, int lacking, Widths& widths, const Widths& captions) const;

    const FlexGridModel& m_model;
    const FlexGridDelegate& m_delegate;
    /// Widest cell seen so far, by section; 0 where none was measured.
    Widths m_contents;
    bool m_readsTexts = false;
};

} // namespace controls
