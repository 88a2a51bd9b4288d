#include "standins/ado/postgresql/shape.h"

#include "standins/ado/postgresql/shape_scanner.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t longest_text = std::size_t{16} * 1024;

}  // namespace

bool Shape::read(std::string_view sql) {
  text_.clear();
  kinds_.clear();
  data_.clear();
  begins_.clear();
  values_.clear();
  key_.clear();
  repeat_ = Repeat::unknown;
  if (sql.size() > longest_text) return false;
  ShapeScanner scanner(sql, *this);
  if (!scanner.scan()) return false;
  repeat_ = scanner.repeat();
  if (!scanner.is_worth_a_shape()) return false;
  for (const std::size_t begin : begins_) values_.push_back(data_.data() + begin);
  key_ = text_;
  key_ += '\0';
  for (const LiteralKind kind : kinds_) key_ += static_cast<char>(kind);
  return true;
}

}  // namespace tallyra::standins::ado
