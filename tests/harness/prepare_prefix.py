#!/usr/bin/env python3
"""Boots the Wine prefix that every test session of this run copies."""

from wine_session import TEMPLATE, prepare_template

prepare_template()
print(f"prepared {TEMPLATE}")
