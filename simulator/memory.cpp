#include "simulator/memory.h"

#include <utility>

namespace sorvane::simulator {
namespace {

constexpr int kLargestNumber = 4;  // bytes; a longer value is a text

Place PlaceOfRecord(const IndexRecord& record) {
  return {{record.address1, record.address2, record.address3}, (record.command & 15) + 1};
}

}  // namespace

std::string ShowName(const ParameterName& name) {
  return (name.system ? "system " : "") + std::to_string(name.number);
}

Memory::Memory(std::vector<IndexRecord> system, std::vector<IndexRecord> parameters)
    : system_(std::move(system)), parameters_(std::move(parameters)) {
  for (int i = 1; i <= SystemCount(); ++i) {
    AddCell(SystemParameter(i), system_[static_cast<std::size_t>(i - 1)]);
  }
  for (int i = 1; i <= ParameterCount(); ++i) {
    AddCell(Parameter(i), parameters_[static_cast<std::size_t>(i - 1)]);
  }
}

void Memory::AddCell(const ParameterName& name, const IndexRecord& record) {
  const Place place = PlaceOfRecord(record);
  const uint8_t rest = name.system ? 0 : ' ';
  Bytes value(record.default_value.begin(), record.default_value.end());
  value.resize(static_cast<std::size_t>(place.size), rest);
  const auto [cell, added] = cells_.try_emplace(place, Cell{name, value});
  if (!added) cell->second.value = value;
}

bool Memory::Has(const ParameterName& name) const {
  return name.number >= 1 && name.number <= (name.system ? SystemCount() : ParameterCount());
}

Place Memory::PlaceOf(const ParameterName& name) const {
  const auto& records = name.system ? system_ : parameters_;
  return PlaceOfRecord(records.at(static_cast<std::size_t>(name.number - 1)));
}

const ParameterName* Memory::NameOf(const Place& place) const {
  const auto cell = cells_.find(place);
  return cell == cells_.end() ? nullptr : &cell->second.name;
}

const Bytes& Memory::Value(const ParameterName& name) const {
  return cells_.at(PlaceOf(name)).value;
}

void Memory::SetValue(const ParameterName& name, const Bytes& bytes) {
  cells_.at(PlaceOf(name)).value = bytes;
}

bool Memory::IsNumber(const ParameterName& name) const {
  return Has(name) && PlaceOf(name).size <= kLargestNumber;
}

uint32_t Memory::Number(const ParameterName& name) const {
  if (!IsNumber(name)) return 0;
  uint32_t number = 0;
  const Bytes& value = Value(name);
  for (std::size_t i = 0; i < value.size(); ++i) number |= uint32_t{value[i]} << (8 * i);
  return number;
}

bool Memory::SetNumber(const ParameterName& name, uint32_t number) {
  if (!IsNumber(name)) return false;
  const int size = PlaceOf(name).size;
  if (number >= uint64_t{1} << (8 * size)) return false;
  Bytes value;
  for (int i = 0; i < size; ++i) value.push_back(static_cast<uint8_t>(number >> (8 * i)));
  SetValue(name, value);
  return true;
}

void Memory::SetText(const ParameterName& name, const std::string& text) {
  if (!Has(name) || IsNumber(name)) return;
  Bytes value(text.begin(), text.end());
  value.resize(static_cast<std::size_t>(PlaceOf(name).size), ' ');
  SetValue(name, value);
}

void Memory::TakeOver(const Memory& other) {
  const auto take = [&](const ParameterName& name) {
    if (other.Has(name) && other.PlaceOf(name).size == PlaceOf(name).size) {
      SetValue(name, other.Value(name));
    }
  };
  for (int i = 1; i <= SystemCount(); ++i) take(SystemParameter(i));
  for (int i = 1; i <= ParameterCount(); ++i) take(Parameter(i));
}

}  // namespace sorvane::simulator
