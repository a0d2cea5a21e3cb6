#include "Tarnwick/Interface/Style/AppFonts.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Tarnwick::AppFonts::registerBundledFonts();
    Tarnwick::setApplicationStyle(1.0);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
