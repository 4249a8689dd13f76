// The property facility of the scene records: one declaration a field.
//
//   SCENEWRIGHT_PROPERTY(std::string, SceneName, setSceneName)
//       a private member with the reader SceneName() and the writer setSceneName(value);
//   SCENEWRIGHT_INDEX(CommonValue, GlobalMIDICh, setGlobalMIDICh)
//       the same for a 32-bit option index, and the constant CommonValue::GlobalMIDIChField, by
//       which a table names the field without repeating its reader and writer.
//
// Readers give small values by value and the rest by reference; writers check nothing. A fresh
// record has zeros and empty references. Both leave the class in private access behind them.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace scenewright {

template <typename T>
using PropertyRead = std::conditional_t<std::is_scalar_v<T>, T, const T&>;

// One option-index field of a record, as data: a row of the tables that need "all fields of this
// kind, in this order".
template <typename Record>
struct IndexField {
    std::string_view name;
    std::int32_t Record::*member; // for of() and set() alone

    [[nodiscard]] constexpr std::int32_t of(const Record& record) const { return record.*member; }
    constexpr void set(Record& record, std::int32_t value) const { record.*member = value; }
};

} // namespace scenewright

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are a type and names
#define SCENEWRIGHT_PROPERTY(Type, Name, SetName)                                                  \
public:                                                                                            \
    [[nodiscard]] ::scenewright::PropertyRead<Type> Name() const {                                 \
        return Name##_;                                                                            \
    }                                                                                              \
    void SetName(Type value) {                                                                     \
        Name##_ = std::move(value);                                                                \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    Type Name##_{};

#define SCENEWRIGHT_INDEX(Record, Name, SetName)                                                   \
    SCENEWRIGHT_PROPERTY(std::int32_t, Name, SetName)                                              \
public:                                                                                            \
    static constexpr ::scenewright::IndexField<Record> Name##Field{#Name, &Record::Name##_};       \
                                                                                                   \
private:
// NOLINTEND(bugprone-macro-parentheses)
