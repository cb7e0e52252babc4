#include "adapters/database/sqlite/sqlite_functions.h"

#include "adapters/database/sqlite/sqlite_order.h"
#include "dialect/functions.h"
#include "platform/desktop.h"
#include "platform/platform.h"

#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::database {

namespace {

using dialect::Accumulator;
using dialect::AggregateFunction;
using dialect::FunctionWorld;
using dialect::ScalarFunction;

thread_local FunctionRun* currentRun = nullptr;

std::string TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const int size = sqlite3_value_bytes(value);
    return text == nullptr ? std::string() : std::string(text, static_cast<std::size_t>(size));
}

Value ValueOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return Null{};
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    default:
        return TextOf(value);
    }
}

/// Hands a value to SQLite as the result of a function.
struct ResultSetter {
    sqlite3_context* context;
    void operator()(Null) const { sqlite3_result_null(context); }
    void operator()(bool value) const { sqlite3_result_int(context, value ? 1 : 0); }
    void operator()(std::int64_t value) const { sqlite3_result_int64(context, value); }
    void operator()(double value) const { sqlite3_result_double(context, value); }
    void operator()(Date value) const { sqlite3_result_double(context, value.number); }
    void operator()(const std::string& value) const {
        sqlite3_result_text64(context, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
};

std::vector<Value> ValuesOf(int count, sqlite3_value** values) {
    std::vector<Value> all;
    all.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all.push_back(ValueOf(values[i]));
    return all;
}

/// Runs `work` for SQLite, which knows no exceptions: a failure becomes its result, and is kept as it is.
template <class Work>
void Guarded(sqlite3_context* context, const Work& work) {
    FunctionRun loose;
    FunctionRun& run = currentRun != nullptr ? *currentRun : loose;
    try {
        work(run);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
        run.Keep(std::current_exception());
    }
}

void Evaluate(sqlite3_context* context, int count, sqlite3_value** values) {
    Guarded(context, [&](FunctionRun& run) {
        const auto& function = *static_cast<const ScalarFunction*>(sqlite3_user_data(context));
        const FunctionWorld world{function.usesNow ? run.Now() : 0};
        std::visit(ResultSetter{context}, dialect::Evaluate(function, ValuesOf(count, values), world));
    });
}

// SQLite keeps one pointer a group for us, null before the first row.
Accumulator** AccumulatorOf(sqlite3_context* context, bool make) {
    return static_cast<Accumulator**>(
        sqlite3_aggregate_context(context, make ? static_cast<int>(sizeof(Accumulator*)) : 0));
}

void StepAggregate(sqlite3_context* context, int count, sqlite3_value** values) {
    Guarded(context, [&](FunctionRun&) {
        Accumulator** accumulator = AccumulatorOf(context, true);
        if (accumulator == nullptr) throw std::bad_alloc();
        if (*accumulator == nullptr)
            *accumulator =
                static_cast<const AggregateFunction*>(sqlite3_user_data(context))->begin().release();
        (*accumulator)->Step(ValuesOf(count, values));
    });
}

// Called for every group that began, however it ends.
void EndAggregate(sqlite3_context* context) {
    Accumulator** kept = AccumulatorOf(context, false);
    std::unique_ptr<Accumulator> accumulator(kept != nullptr ? *kept : nullptr);
    Guarded(context, [&](FunctionRun&) {
        if (!accumulator) // a group of no rows
            accumulator = static_cast<const AggregateFunction*>(sqlite3_user_data(context))->begin();
        std::visit(ResultSetter{context}, accumulator->Result());
    });
}

void Register(sqlite3* handle, const ScalarFunction& function) {
    const std::string name(function.emittedName);
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (function.usesNow ? 0 : SQLITE_DETERMINISTIC);
    // SQLite only hands the pointer back, and only we read it there.
    auto* self = const_cast<ScalarFunction*>(&function);
    for (int count = function.minimumArguments; count <= function.maximumArguments; ++count)
        CheckRegistered(handle, sqlite3_create_function_v2(handle, name.c_str(), count, flags, self, Evaluate,
                                                           nullptr, nullptr, nullptr));
}

void Register(sqlite3* handle, const AggregateFunction& function) {
    const std::string name(function.emittedName);
    auto* self = const_cast<AggregateFunction*>(&function);
    constexpr int anyNumber = -1;
    CheckRegistered(handle, sqlite3_create_function_v2(handle, name.c_str(), anyNumber,
                                                       SQLITE_UTF8 | SQLITE_INNOCUOUS, self, nullptr,
                                                       StepAggregate, EndAggregate, nullptr));
}

} // namespace

void RegisterFunctions(sqlite3* handle) {
    RegisterTextOrder(handle);
    for (const ScalarFunction& function : dialect::ScalarFunctions())
        Register(handle, function);
    for (const AggregateFunction& function : dialect::AggregateFunctions())
        Register(handle, function);
}

double FunctionRun::Now() {
    if (!mNow) mNow = Platform::Current().clock->Now();
    return *mNow;
}

void FunctionRun::Rethrow() {
    if (mFailure) std::rethrow_exception(std::exchange(mFailure, nullptr));
}

FunctionRun::Scope::Scope(FunctionRun& run) : mOuter(std::exchange(currentRun, &run)) {}

FunctionRun::Scope::~Scope() {
    currentRun = mOuter;
}

} // namespace qbrpt::database
