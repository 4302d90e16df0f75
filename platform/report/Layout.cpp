#include "platform/report/Layout.h"

#include "platform/base/Error.h"
#include "platform/report/PageBuilder.h"
#include "platform/report/ReportError.h"
#include "platform/report/RowSource.h"

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

/// The rows of the details, kept as long as somebody wants to export them.
class DataRows : public HeldRows {
  public:
    explicit DataRows(std::shared_ptr<const ReportData> data)
        : HeldRows(data->tables.front()), m_data(std::move(data)) {}

  private:
    std::shared_ptr<const ReportData> m_data;
};

} // namespace

std::unique_ptr<PageDocument> layout(std::shared_ptr<const ReportData> data) {
    auto pages = std::make_unique<LaidPages>(data);
    std::vector<TreeEntry> tree = pages->findPages();
    const ReportDefinition& definition = *data->definition;
    auto document = std::make_unique<PageDocument>(std::move(pages), definition.title, definition.paperWidth,
                                                   definition.paperHeight, std::move(tree));
    if (!data->tables.empty()) {
        document->setRows(std::make_shared<DataRows>(data),
                          headingOf(definition, data->headingName, data->headingAddress, data->parameters));
    }
    return document;
}

} // namespace report
