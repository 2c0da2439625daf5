// SPDX-License-Identifier: GPL-2.0-or-later
// Each test is made to be true or false, never null, as the clause's own are.
#include "hosts/qgis/data/expression.h"

#include <qgsexpression.h>

#include <set>

#include "hosts/columns/clausetree.h"
#include "hosts/columns/conditions.h"
#include "hosts/columns/rows.h"

namespace brelmon::qgis {
namespace {

using columns::ClauseNode, columns::Field, columns::Storage;
using Kind = ClauseNode::Kind;
using Expression = std::optional<QString>;

QString Quoted(const std::string& text) {
  return QgsExpression::quotedString(QString::fromStdString(text));
}

QString Certain(const QString& test) { return QStringLiteral("coalesce(%1, false)").arg(test); }

class Translator {
 public:
  explicit Translator(const std::vector<Field>& fields) : fields_(fields) {}

  /// A row without a date that is compared isn't found, whatever else is said.
  QString WithDates(const QString& whole) const {
    QString all = whole;
    for (const QString& name : dates_) {
      all = QStringLiteral("%1 IS NOT NULL AND (%2)").arg(name, all);
    }
    return all;
  }

  Expression Of(const ClauseNode& node) {
    switch (node.kind) {
      case Kind::And:
      case Kind::Or: {
        const Expression one = Of(*node.parts[0]), other = Of(*node.parts[1]);
        if (!one || !other) return {};
        const QString word = node.kind == Kind::And ? QStringLiteral("AND") : QStringLiteral("OR");
        return QStringLiteral("(%1) %2 (%3)").arg(*one, word, *other);
      }
      case Kind::Not: {
        const Expression inner = Of(*node.parts[0]);
        return inner ? QStringLiteral("NOT (%1)").arg(*inner) : Expression();
      }
      case Kind::IsNull: {
        const Field* field = FieldOf(*node.parts[0]);
        return field ? QStringLiteral("%1 IS NULL").arg(NameOf(*field)) : Expression();
      }
      case Kind::Like:
      case Kind::ILike:
        return Pattern(node);
      case Kind::In:
        return List(node);
      case Kind::Between: {
        const Expression low = Compared(QStringLiteral(">="), *node.parts[0], *node.parts[1]);
        const Expression high = Compared(QStringLiteral("<="), *node.parts[0], *node.parts[2]);
        if (!low || !high) return {};
        return QStringLiteral("%1 AND %2").arg(*low, *high);
      }
      case Kind::Equal:
        return Compared(QStringLiteral("="), *node.parts[0], *node.parts[1]);
      case Kind::NotEqual:
        return Compared(QStringLiteral("<>"), *node.parts[0], *node.parts[1]);
      case Kind::Less:
        return Compared(QStringLiteral("<"), *node.parts[0], *node.parts[1]);
      case Kind::LessEqual:
        return Compared(QStringLiteral("<="), *node.parts[0], *node.parts[1]);
      default:
        return {};
    }
  }

 private:
  const Field* FieldOf(const ClauseNode& node) const {
    if (node.kind != Kind::Name) return nullptr;
    const std::int32_t index = columns::FindField(fields_, FromUtf8(node.text));
    return index < 0 ? nullptr : &fields_[static_cast<std::size_t>(index)];
  }
  static QString NameOf(const Field& field) {
    return QgsExpression::quotedColumnRef(QString::fromStdString(field.Name));
  }

  /// Numbers as they are, texts in small letters, dates as dates of the field they are compared
  /// with.
  Expression Operand(const ClauseNode& node, const Field* beside) {
    if (const Field* field = FieldOf(node)) {
      if (field->Stored == Storage::Text) return QStringLiteral("lower(%1)").arg(NameOf(*field));
      if (field->Stored == Storage::Other || field->Logical) return {};
      if (field->Stored == Storage::Moment) dates_.insert(NameOf(*field));
      return NameOf(*field);
    }
    switch (node.kind) {
      case Kind::Whole:
        return QString::number(node.whole);
      case Kind::Real:
        return QString::number(node.real, 'g', 17);
      case Kind::Text:
        if (beside && beside->Stored == Storage::Moment) return DateText(node.text, *beside);
        if (beside && beside->Stored != Storage::Text) return {};
        return QStringLiteral("lower(%1)").arg(Quoted(node.text));
      case Kind::Add:
      case Kind::Subtract:
      case Kind::Multiply:
        return Reckoned(node);
      default:
        return {};
    }
  }
  static Expression DateText(const std::string& text, const Field& field) {
    columns::Moment moment;
    if (!columns::ReadMoment(text, moment)) return {};
    const QString day = QStringLiteral("make_date(%1, %2, %3)");
    const QString time = QStringLiteral("make_datetime(%1, %2, %3, %4, %5, %6)");
    const bool midnight = moment.Hour == 0 && moment.Minute == 0 && moment.Second == 0;
    if (!field.TimeOfDay && !midnight) return {};
    if (!field.TimeOfDay) return day.arg(moment.Year).arg(moment.Month).arg(moment.Day);
    return time.arg(moment.Year)
        .arg(moment.Month)
        .arg(moment.Day)
        .arg(moment.Hour)
        .arg(moment.Minute)
        .arg(static_cast<double>(moment.Second));
  }
  Expression Reckoned(const ClauseNode& node) {
    const Expression one = Operand(*node.parts[0], nullptr),
                     other = Operand(*node.parts[1], nullptr);
    if (!one || !other) return {};
    const QString sign = node.kind == Kind::Add        ? QStringLiteral("+")
                         : node.kind == Kind::Subtract ? QStringLiteral("-")
                                                       : QStringLiteral("*");
    return QStringLiteral("(%1 %2 %3)").arg(*one, sign, *other);
  }

  Expression Compared(const QString& sign, const ClauseNode& left, const ClauseNode& right) {
    const Expression one = Operand(left, FieldOf(right)), other = Operand(right, FieldOf(left));
    if (!one || !other) return {};
    return Certain(QStringLiteral("%1 %2 %3").arg(*one, sign, *other));
  }
  Expression Pattern(const ClauseNode& node) {
    const Field* field = FieldOf(*node.parts[0]);
    const bool plain = node.parts.size() == 2 && node.parts[1]->kind == Kind::Text &&
                       node.parts[1]->text.find('\\') == std::string::npos;
    if (!field || field->Stored != Storage::Text || !plain) return {};
    const QString word = node.kind == Kind::Like ? QStringLiteral("LIKE") : QStringLiteral("ILIKE");
    return Certain(
        QStringLiteral("%1 %2 %3").arg(NameOf(*field), word, Quoted(node.parts[1]->text)));
  }
  Expression List(const ClauseNode& node) {
    const Field* field = FieldOf(*node.parts[0]);
    const Expression value = Operand(*node.parts[0], nullptr);
    if (!value) return {};
    QStringList among;
    for (std::size_t i = 1; i < node.parts.size(); ++i) {
      const Expression each = Operand(*node.parts[i], field);
      if (!each) return {};
      among << *each;
    }
    return Certain(QStringLiteral("%1 IN (%2)").arg(*value, among.join(QStringLiteral(", "))));
  }

  const std::vector<Field>& fields_;
  std::set<QString> dates_;
};

}  // namespace

std::optional<QString> ExpressionOf(TextView clause, const std::vector<Field>& fields) {
  const auto tree = columns::ReadClause(ToUtf8(clause));
  if (!tree) return {};
  Translator translator(fields);
  const Expression whole = translator.Of(*tree);
  return whole ? translator.WithDates(*whole) : Expression();
}

}  // namespace brelmon::qgis
