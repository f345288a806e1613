import QtQuick
import Pellumar.Kit

// A row of which nothing is known.
Item {
    required property UITableViewCell controller
}
