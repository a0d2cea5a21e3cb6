#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QPersistentModelIndex>

#include <string>
#include <vector>

namespace Tarnwick {

/// What the rows say.
inline std::vector<std::string> textsOf(const QAbstractItemModel& model)
{
    std::vector<std::string> texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.push_back(model.index(row, 0).data().toString().toStdString());
    }
    return texts;
}

/// Follows a model by its signals alone: what it holds is what a view would show.
class Follower : public QObject {
public:
    explicit Follower(const QAbstractItemModel& model)
        : texts(textsOf(model))
    {
        using Model = QAbstractItemModel;
        connect(&model, &Model::modelReset, this, [this] { ++resets; });
        connect(&model, &Model::rowsRemoved, this, [this](auto&&, int first, int last) {
            texts.erase(texts.begin() + first, texts.begin() + last + 1);
        });
        connect(&model, &Model::rowsInserted, this, [this, &model](auto&&, int first, int last) {
            for (int row = first; row <= last; ++row) {
                texts.insert(texts.begin() + row, textsOf(model).at(static_cast<std::size_t>(row)));
            }
        });
        connect(&model, &Model::layoutAboutToBeChanged, this, [this, &model] {
            for (int row = 0; row < model.rowCount(); ++row) {
                _kept.emplace_back(model.index(row, 0));
            }
        });
        connect(&model, &Model::layoutChanged, this, [this] {
            const std::vector<std::string> before = texts;
            for (std::size_t row = 0; row < before.size(); ++row) {
                texts.at(static_cast<std::size_t>(_kept.at(row).row())) = before[row];
            }
            _kept.clear();
        });
    }

    std::vector<std::string> texts;
    int resets = 0;

private:
    std::vector<QPersistentModelIndex> _kept;
};

}  // namespace Tarnwick
