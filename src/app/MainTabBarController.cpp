#include "app/MainTabBarController.h"
