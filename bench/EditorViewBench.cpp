#include "app/linux/editor/EditorPeer.h"
#include "app/linux/editor/EditorView.h"
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <benchmark/benchmark.h>

// The native editor with large texts: what a user waits for.
namespace {

constexpr std::size_t Large = 100'000'000;

std::string TextOfLines(std::size_t bytes, std::size_t lineLength)
{
    std::string text;
    text.reserve(bytes + lineLength + 2);
    while (text.size() < bytes) {
        for (std::size_t word = 0; word < lineLength; word += 5)
            text += "word ";
        text += "\r\n";
    }
    return text;
}

struct ShownEditor {
    explicit ShownEditor(std::size_t lineLength = 75, std::size_t bytes = Large)
    {
        peer.resize(800, 600);
        peer.show();
        box.SetText(TextOfLines(bytes, lineLength));
        view.setFocus();
        QApplication::processEvents();
    }
    // Until the screen shows what became of it.
    void Key(int key, Qt::KeyboardModifiers modifiers, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&view, &event);
        view.viewport()->repaint();
    }
    ui::CForm form{"frmBench", "Bench"};
    ui::CTextBox box{form, "txtBench"};
    CEditorPeer peer{box};
    CEditorView& view = peer.View();
};

void PutLargeText(benchmark::State& state)
{
    ShownEditor editor(75, 10);
    const std::string text = TextOfLines(Large, static_cast<std::size_t>(state.range(0)));
    const std::string other = "x";
    for (auto _ : state) {
        state.PauseTiming();
        editor.box.SetText(other);
        std::string copy = text;
        state.ResumeTiming();
        editor.box.SetText(std::move(copy));
        editor.view.viewport()->repaint();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(PutLargeText)->Arg(75)->Arg(5)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// Lines of 75 characters, and lines of a million.
void TypeALetter(benchmark::State& state)
{
    ShownEditor editor(static_cast<std::size_t>(state.range(0)));
    editor.view.Select(Large / 2, Large / 2);
    for (auto _ : state)
        editor.Key(Qt::Key_X, Qt::NoModifier, "x");
}
BENCHMARK(TypeALetter)->Arg(75)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// Each letter at the other end of the text.
void TypeAtBothEnds(benchmark::State& state)
{
    ShownEditor editor;
    for (auto _ : state) {
        const std::size_t place = editor.view.Text().Caret() > Large / 2 ? 0 : editor.view.Text().Buffer().Size();
        editor.view.Select(place, place);
        editor.Key(Qt::Key_X, Qt::NoModifier, "x");
    }
}
BENCHMARK(TypeAtBothEnds)->Unit(benchmark::kMillisecond);

void ScrollByWheel(benchmark::State& state)
{
    ShownEditor editor(static_cast<std::size_t>(state.range(0)));
    QWheelEvent down(QPointF(20, 20), QPointF(20, 20), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
    for (auto _ : state) {
        QApplication::sendEvent(editor.view.viewport(), &down);
        editor.view.viewport()->repaint();
    }
}
BENCHMARK(ScrollByWheel)->Arg(75)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ScrollByBar(benchmark::State& state)
{
    ShownEditor editor;
    int place = 0;
    for (auto _ : state) {
        place = (place + 7'654'321) % editor.view.verticalScrollBar()->maximum();
        editor.view.verticalScrollBar()->setValue(place);
        editor.view.viewport()->repaint();
    }
}
BENCHMARK(ScrollByBar)->Unit(benchmark::kMillisecond);

void GoToTheEndAndBack(benchmark::State& state)
{
    ShownEditor editor;
    for (auto _ : state) {
        editor.Key(Qt::Key_End, Qt::ControlModifier);
        editor.Key(Qt::Key_Home, Qt::ControlModifier);
    }
}
BENCHMARK(GoToTheEndAndBack)->Unit(benchmark::kMillisecond);

void FetchTheText(benchmark::State& state)
{
    ShownEditor editor;
    for (auto _ : state) {
        editor.box.Edited();
        benchmark::DoNotOptimize(editor.box.Text().size());
    }
}
BENCHMARK(FetchTheText)->Unit(benchmark::kMillisecond);

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
