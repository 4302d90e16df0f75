#include "platform/report/Layout.h"

#include "platform/base/Error.h"
#include "platform/report/PageBuilder.h"
#include "platform/report/ReportError.h"

namespace report {
namespace {

constexpr std::size_t mostPages = 1000000;

class LaidPages : public PageSource {
  public:
    explicit LaidPages(std::shared_ptr<const ReportData> data)
        : m_data(std::move(data))
        , m_evaluator(m_data)
        , m_bands(m_data, m_evaluator)
        , m_builder(*m_data->definition, m_evaluator, m_bands) {}

    std::vector<TreeEntry> findPages() {
        std::vector<TreeEntry> tree;
        Position at;
        while (at.stage != Position::Stage::End) {
            if (m_starts.size() == mostPages)
                throw base::RunTimeError(errorDamaged, QStringLiteral("The report has too many pages."));
            m_starts.push_back(at);
            PageBuilder::Built built = m_builder.build(at, int(m_starts.size()), 0);
            std::move(built.groups.begin(), built.groups.end(), std::back_inserter(tree));
            at = built.next;
        }
        return tree;
    }

    int pageCount() const override { return int(m_starts.size()); }
    Page makePage(int index) override {
        return m_builder.build(m_starts[std::size_t(index)], index + 1, pageCount()).page;
    }

  private:
    std::shared_ptr<const ReportData> m_data;
    Evaluator m_evaluator;
    BandLayout m_bands;
    PageBuilder m_builder;
    std::vector<Position> m_starts;
};

} // namespace

std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data) {
    auto pages = std::make_unique<LaidPages>(data);
    std::vector<TreeEntry> tree = pages->findPages();
    const ReportDefinition& definition = *data->definition;
    return std::make_unique<PageDocument>(std::move(pages), definition.title, definition.paperWidth,
                                          definition.paperHeight, std::move(tree));
}

} // namespace report
