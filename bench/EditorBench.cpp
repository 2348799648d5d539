#include "platform/headless/Desktop.h"
#include "settings/bOptions.h"
#include "ui/TextEditor.h"
#include "ui/frmParlune.h"
#include <benchmark/benchmark.h>

// The text editor with large files: opening and saving, and that both grow with the file and no faster.
namespace {

constexpr char File[] = "C:\\Texts\\large.txt";

std::string TextOfLines(std::size_t bytes, std::size_t lineLength)
{
    std::string text;
    text.reserve(bytes + lineLength + 2);
    while (text.size() < bytes)
        text.append(lineLength, 'x').append("\r\n");
    return text;
}

// A desktop that notes nothing down while it is measured.
struct QuietDesktop : CHeadlessDesktop {
    QuietDesktop() { journal.SetNoting(false); }
};

void CountBytes(benchmark::State& state) { state.SetBytesProcessed(state.iterations() * state.range(0)); }

void OpenLargeFile(benchmark::State& state)
{
    QuietDesktop desktop;
    desktop.files.PutFile(File,
                          TextOfLines(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1))));
    for (auto _ : state) {
        MainWindow().txtRead.SetText("");
        bOptions::OpenFile(File);
    }
    CountBytes(state);
}
BENCHMARK(OpenLargeFile)->ArgsProduct({{1'000'000, 10'000'000, 100'000'000}, {78}})->Unit(benchmark::kMillisecond);
BENCHMARK(OpenLargeFile)->Args({100'000'000, 8})->Args({100'000'000, 1'000'000})->Unit(benchmark::kMillisecond);

// Nothing but line breaks at the end, all but one of which are taken away.
void TrimEmptyLines(benchmark::State& state)
{
    QuietDesktop desktop;
    desktop.files.PutFile(File, TextOfLines(static_cast<std::size_t>(state.range(0)), 0));
    for (auto _ : state)
        bOptions::OpenFile(File);
    CountBytes(state);
}
BENCHMARK(TrimEmptyLines)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

void SaveLargeFile(benchmark::State& state)
{
    QuietDesktop desktop;
    desktop.files.PutFolder("C:\\Texts");
    MainWindow().txtRead.SetText(TextOfLines(static_cast<std::size_t>(state.range(0)), 78));
    for (auto _ : state)
        textEditor::SaveFile(File);
    CountBytes(state);
}
BENCHMARK(SaveLargeFile)->Arg(1'000'000)->Arg(100'000'000)->Unit(benchmark::kMillisecond);

}
