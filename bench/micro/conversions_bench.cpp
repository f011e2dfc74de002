// Measures conversions between texts, buffers and byte lists. The argument is the number of
// bytes: of a report, of a console reply, and the most that a client sends in one read.

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/micro/allocation_counters.h"
#include "common/answer_class.h"
#include "common/byte_list.h"
#include "common/text.h"
#include "ports/framing.h"

namespace {

std::string textOf(const benchmark::State& state) {
    return std::string(static_cast<std::size_t>(state.range(0)), 'x');
}

ByteList listOf(const benchmark::State& state) {
    return ByteList(static_cast<std::size_t>(state.range(0)), 'x');
}

void stringToList(benchmark::State& state) {
    const std::string text = textOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(Convert_String2QList(text));
}

void textBufferToList(benchmark::State& state) {
    const std::string text = textOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(Convert_CharBuff2QList(text.c_str()));
}

void countedBufferToList(benchmark::State& state) {
    const std::string buffer = static_cast<char>(state.range(0)) + textOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(Convert_BinBuff2QList(buffer.data()));
}

void listToString(benchmark::State& state) {
    const ByteList list = listOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(Convert_QList2String(list));
}

void listToBuffer(benchmark::State& state) {
    const ByteList list = listOf(state);
    std::array<char, 256> buffer{};
    const AllocationCounters counters(state);
    for (auto _ : state) {
        Convert_QList2BinBuff(list, buffer.data());
        benchmark::ClobberMemory();
    }
}

void listToClient(benchmark::State& state) {
    const ByteList list = listOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(framing::toSend(FramingMode::kText, list));
}

void answerClass(benchmark::State& state) {
    const ByteList list = listOf(state);
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(GetQListError(list));
}

void hexToByte(benchmark::State& state) {
    const std::string digits = "FB";
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(Convert_HexStr2Byte(digits));
}

void textToNumber(benchmark::State& state) {
    const std::string text = "5000";
    const AllocationCounters counters(state);
    for (auto _ : state) benchmark::DoNotOptimize(ATOL(text));
}

void numberToText(benchmark::State& state) {
    int number = 5000;
    const AllocationCounters counters(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(number);
        benchmark::DoNotOptimize(ITOA(number));
    }
}

BENCHMARK(stringToList)->Name("string to list")->Arg(7)->Arg(50)->Arg(255);
BENCHMARK(textBufferToList)->Name("text buffer to list")->Arg(7)->Arg(50)->Arg(255);
BENCHMARK(countedBufferToList)->Name("counted buffer to list")->Arg(7)->Arg(50)->Arg(127);
BENCHMARK(listToString)->Name("list to string")->Arg(7)->Arg(50)->Arg(255);
BENCHMARK(listToBuffer)->Name("list to buffer")->Arg(7)->Arg(50)->Arg(255);
BENCHMARK(listToClient)->Name("list to client")->Arg(7)->Arg(50)->Arg(255);
BENCHMARK(answerClass)->Name("class of an answer")->Arg(5);
BENCHMARK(hexToByte)->Name("hexadecimal text to byte");
BENCHMARK(textToNumber)->Name("text to number");
BENCHMARK(numberToText)->Name("number to text");

}  // namespace
