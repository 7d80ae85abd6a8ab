import os
import shutil

import pytest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


@pytest.fixture(autouse=True)
def folder(tmp_path, monkeypatch):
    """Each test runs in a folder of its own, beside a copy of the examples."""
    shutil.copytree(os.path.join(ROOT, "examples"), tmp_path / "examples")
    monkeypatch.chdir(tmp_path)
    return tmp_path
