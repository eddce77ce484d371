"""Requests to a local service, and its replies."""

import dataclasses
import json

HTML = "text/html; charset=utf-8"
JSON = "application/json; charset=utf-8"


@dataclasses.dataclass(frozen=True)
class Request:
    method: str
    path: str
    query: dict
    form: dict
    agent: str


@dataclasses.dataclass(frozen=True)
class Reply:
    status: int
    content_type: str
    body: bytes
    headers: tuple = ()


def json_reply(value, status=200):
    return Reply(status, JSON, json.dumps(value, ensure_ascii=False, indent=1).encode())
