#pragma once

#include "platform/report/definition/DefinitionReader.h"

#include <QHash>

namespace report {

/// The attributes of one element of a definition. Each is taken once; what is left over is an error.
class DefinitionReader::Attributes {
  public:
    explicit Attributes(DefinitionReader& reader);

    bool has(const char* name) const;
    /// Raises 20515 when it is missing.
    QString text(const char* name);
    QString text(const char* name, const QString& otherwise);
    /// "12.5mm", "1cm", "8.5in" or "9pt"; raises 20515 without a unit and out of 0 to 2 m.
    Length length(const char* name);
    Length length(const char* name, Length otherwise);
    double points(const char* name, double otherwise);
    double number(const char* name, double otherwise, double least, double most);
    bool yes(const char* name);
    QColor colour(const char* name, const QColor& otherwise);
    /// One of the words; the first when it is missing.
    int word(const char* name, const QStringList& words);
    std::optional<Expression> expression(const char* name);
    void finish();

  private:
    DefinitionReader& m_reader;
    QHash<QString, QString> m_values;
};

} // namespace report
