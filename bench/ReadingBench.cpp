#include "reading/CParser.h"
#include "reading/TextPieces.h"
#include <benchmark/benchmark.h>

// Cutting texts: throughput, and how it grows with the text.
namespace {

std::string Sentences(std::size_t bytes)
{
    static constexpr std::string_view Paragraph =
        "The quick reader takes one line after the other.  It never loses its place, \r\n"
        "even where a sentence runs on over the end of a line.\r\n\r\n";
    std::string text;
    text.reserve(bytes + Paragraph.size());
    while (text.size() < bytes)
        text += Paragraph;
    return text;
}

void CutIntoLines(benchmark::State& state)
{
    const std::string text = Sentences(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        CParser parser;  // As every reading has its own.
        parser.ParseIt(text, "\r\n");
        benchmark::DoNotOptimize(parser.FieldCount());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(CutIntoLines)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// All three levels: paragraphs, lines and sentences.
void CutForReading(benchmark::State& state)
{
    const std::string text = Sentences(static_cast<std::size_t>(state.range(0)));
    std::size_t pieces = 0;
    for (auto _ : state)
        reading::CutIntoPieces(
            text, [] {}, [&](const std::string&) { ++pieces; });
    benchmark::DoNotOptimize(pieces);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(CutForReading)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}
