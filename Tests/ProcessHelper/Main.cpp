#include "Behaviours.h"

#include <exception>
#include <iostream>

int main(int count, char** texts)
{
    try {
        const std::vector<std::string> arguments(texts + 2, texts + count);
        return ProcessHelper::behaviours().at(texts[1])(arguments);
    } catch (const std::exception& error) {
        std::cerr << "ProcessHelper BEHAVIOUR ARGUMENT…: " << error.what() << '\n';
        return 100;
    }
}
